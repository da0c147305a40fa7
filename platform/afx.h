/// Objects, exceptions, strings, files and archives of the platform, and the registration of extension modules.
#pragma once

#include "base/CArchive.h"
#include "base/CDynLinkLibrary.h"
#include "base/CException.h"
#include "base/CFile.h"
#include "base/CObject.h"
#include "base/CString.h"
#include "base/winkernel.h"
#include "base/wintypes.h"

#include <cassert>

/// For our own mistakes only: what a host or a file can get wrong is answered, not asserted.
#ifndef ASSERT
#define ASSERT(condition) assert(condition)
#endif
