#include "entities/ArchiveNesting.h"

#include <afx.h>

namespace {

/// Of this thread: how deep the records run is a matter of its stack, whichever archive they lie in.
thread_local int nesting = 0;

} // namespace

ArchiveNesting::ArchiveNesting()
{
    RequireRoom();
    ++nesting;
}

ArchiveNesting::~ArchiveNesting()
{
    --nesting;
}

void ArchiveNesting::RequireRoom()
{
    if (nesting >= kDeepest)
        AfxThrowArchiveException(CArchiveException::badSchema);
}
