/// The array template of the platform.
#pragma once

#include <afx.h>

#include "base/CArray.h"
