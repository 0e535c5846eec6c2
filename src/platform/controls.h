// All controls of a screen; screens include this one header.
#pragma once

#include "platform/Bars.h"           // IWYU pragma: export
#include "platform/Editor.h"         // IWYU pragma: export
#include "platform/Grid.h"           // IWYU pragma: export
#include "platform/ListControls.h"   // IWYU pragma: export
#include "platform/Screen.h"         // IWYU pragma: export
#include "platform/SimpleControls.h" // IWYU pragma: export
