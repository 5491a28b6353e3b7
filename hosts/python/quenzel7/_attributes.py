"""Attributes that are spelt right: reading or writing one that a class does not have is an AttributeError that
names the nearest."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, List

from .errors import unknown_name


class Spelt:
    """An object with the attributes of its class and those of its own that begin with an underscore."""

    __slots__ = ()

    if not TYPE_CHECKING:
        # A type checker takes these two as leave for every name.
        def __getattr__(self, name: str) -> Any:
            # What is here is a property that raised an AttributeError of its own.
            if not name.startswith("_") and not hasattr(type(self), name):
                raise AttributeError(self._unknown(name))
            return object.__getattribute__(self, name)

        def __setattr__(self, name: str, value: Any) -> None:
            if not name.startswith("_") and not hasattr(type(self), name):
                raise AttributeError(self._unknown(name))
            object.__setattr__(self, name, value)

    def _unknown(self, name: str) -> str:
        names: List[str] = [known for known in dir(type(self)) if not known.startswith("_")]
        return unknown_name(f"{type(self).__name__} has no attribute", name, names)
