#include "base/SystemError.h"

#include "base/winkernel.h"

#include <cerrno>

namespace afx {

namespace {

struct ErrorName
{
    int error;
    DWORD code;
};

// Several of the system's reasons share a code; those without a row are a general failure.
const ErrorName kErrorNames[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},     {ENOTDIR, ERROR_PATH_NOT_FOUND},     {ENAMETOOLONG, ERROR_PATH_NOT_FOUND},
    {ELOOP, ERROR_PATH_NOT_FOUND},      {EMFILE, ERROR_TOO_MANY_OPEN_FILES}, {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EACCES, ERROR_ACCESS_DENIED},      {EPERM, ERROR_ACCESS_DENIED},        {EROFS, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},      {EBADF, ERROR_INVALID_HANDLE},       {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {ETXTBSY, ERROR_SHARING_VIOLATION}, {EEXIST, ERROR_FILE_EXISTS},         {EINVAL, ERROR_INVALID_PARAMETER},
    {ENOSPC, ERROR_DISK_FULL},          {EDQUOT, ERROR_DISK_FULL},           {EFBIG, ERROR_DISK_FULL},
};

struct CauseName
{
    DWORD code;
    int cause;
};

// The platform's file class groups the codes more coarsely still.
const CauseName kCauseNames[] = {
    {NO_ERROR, CFileException::none},
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_HANDLE, CFileException::invalidFile},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_DISK_FULL, CFileException::diskFull},
    {ERROR_GEN_FAILURE, CFileException::hardIO},
};

} // namespace

DWORD ErrorFromErrno(int error)
{
    for (const ErrorName& name : kErrorNames) {
        if (name.error == error)
            return name.code;
    }
    return ERROR_GEN_FAILURE;
}

int FileCauseFromError(DWORD error)
{
    for (const CauseName& name : kCauseNames) {
        if (name.code == error)
            return name.cause;
    }
    return CFileException::genericException;
}

} // namespace afx
