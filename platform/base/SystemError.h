/// What the system's error numbers mean in the platform's two vocabularies.
#pragma once

#include "base/CException.h"

namespace afx {

/// The error code (ERROR_...) for an errno value; ERROR_GEN_FAILURE for one that has no better name.
DWORD ErrorFromErrno(int error);

/// The cause of a CFileException for an error code.
int FileCauseFromError(DWORD error);

} // namespace afx
