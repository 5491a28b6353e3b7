#pragma once

/// The shared module of the elements, in one include.
#include "framework/geometry.h"
#include "framework/library_services.h"
#include "framework/operands.h"
#include "framework/picture_utils.h"
#include "framework/project.h"
#include "framework/tab_index.h"
#include "framework/touch_style.h"
#include "framework/transform_state.h"
#include "framework/values.h"
