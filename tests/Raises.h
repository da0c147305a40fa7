/// How tests look at exceptions that are thrown by pointer: caught, judged and deleted.
#pragma once

#include <afx.h>

/// Whether the call raises an exception of this class or one derived from it. Others pass.
template <class Exception, class Call>
bool Raises(const Call& call)
{
    try {
        call();
    } catch (Exception* e) {
        e->Delete();
        return true;
    }
    return false;
}

/// The cause of the archive exception that the call raises, or CArchiveException::none.
template <class Call>
int ArchiveCause(const Call& call)
{
    try {
        call();
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return CArchiveException::none;
}
