/// Exceptions are thrown by pointer: `catch (CArchiveException* e)`. Who catches one calls e->Delete() when done with
/// it.
#pragma once

#include "base/CObject.h"
#include "base/CString.h"

/// Root of the exceptions; catching a pointer to it catches all of them.
class KOLM_API CException : public CObject
{
public:
    /// An exception that lives on the heap deletes itself; one that is static passes FALSE. Those without a cause of
    /// their own are static, so that raising them needs no memory.
    explicit CException(BOOL autoDelete = TRUE) : m_autoDelete(autoDelete) {}

    /// The one way to get rid of a caught exception.
    void Delete();

    /// Puts a sentence for the user into `text`, cut to `capacity` bytes with its final zero. FALSE, with an empty
    /// text, when the exception has none to tell. `helpContext` (may be null) becomes 0.
    virtual BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const;

private:
    BOOL m_autoDelete;
};

/// No memory, or a size that no memory could have. Raised by arrays, archives and files in memory; what is made with
/// new, texts included, raises std::bad_alloc instead, and a host catches both. Functions with a failure value (those
/// of winkernel.h, wingdi.h and winuser.h) raise neither: they answer it, with ERROR_NOT_ENOUGH_MEMORY for
/// GetLastError().
class KOLM_API CMemoryException : public CException
{
public:
    using CException::CException;
    BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const override;
};

/// An argument that a call cannot take: an index outside of an array, a negative size.
class KOLM_API CInvalidArgException : public CException
{
public:
    using CException::CException;
    BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const override;
};

/// Something that this class of object cannot do at all.
class KOLM_API CNotSupportedException : public CException
{
public:
    using CException::CException;
    BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const override;
};

/// An archive that cannot go on. Hosts show the message or look at the cause.
class KOLM_API CArchiveException : public CException
{
public:
    enum
    {
        none,
        genericException, ///< the archive is closed, or nothing more is known
        readOnly,         ///< storing into an archive that loads
        endOfFile,        ///< the archive ended before the value did
        writeOnly,        ///< loading from an archive that stores
        badIndex,         ///< the record names something that is not there
        badClass,         ///< the record holds an object of another kind
        badSchema,        ///< the record is not one that the reader knows
        bufferFull        ///< the record does not fit into what was set aside for it
    };

    /// `archiveName` may be null.
    explicit CArchiveException(int cause = none, LPCTSTR archiveName = nullptr);
    BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const override;

    int m_cause;           ///< one of the causes above
    CString m_strFileName; ///< path of the file below the archive; empty for memory
};

/// A file that cannot be opened, read or written.
class KOLM_API CFileException : public CException
{
public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile, ///< the file is not open
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG osError = -1, LPCTSTR fileName = nullptr);
    BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const override;

    int m_cause;     ///< one of the causes above
    LONG m_lOsError; ///< the error code of GetLastError; -1 when there is none
    CString m_strFileName;
};

// The ways to raise them. Names may be null; `osError` is a code of GetLastError, or -1.
[[noreturn]] KOLM_API void AfxThrowMemoryException();
[[noreturn]] KOLM_API void AfxThrowInvalidArgException();
[[noreturn]] KOLM_API void AfxThrowNotSupportedException();
[[noreturn]] KOLM_API void AfxThrowArchiveException(int cause, LPCTSTR archiveName = nullptr);
[[noreturn]] KOLM_API void AfxThrowFileException(int cause, LONG osError = -1, LPCTSTR fileName = nullptr);
