/// The array template of the platform.
#pragma once

#include "base/CArray.h"
