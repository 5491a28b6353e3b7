#pragma once

/// The drawing side of the shared module, in one include.
#include "framework/language_strings.h"
#include "framework/mono_bitmaps.h"
#include "framework/mono_bits.h"
#include "framework/mono_bytes.h"
#include "framework/report_lines.h"
#include "framework/transparent_bitmap.h"
