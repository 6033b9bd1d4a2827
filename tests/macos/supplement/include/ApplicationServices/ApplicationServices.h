#pragma once

#include <CoreGraphics/CoreGraphics.h>
