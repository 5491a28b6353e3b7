"""The version of the package, that of the library it goes with."""

__version__ = "0.1.0"
