#include "base/CException.h"

#include <cstring>

namespace {

/// Copies a sentence into a caller's buffer, cut to fit; 1 when the buffer could take at least the final zero.
BOOL PutText(LPCSTR sentence, LPTSTR text, UINT capacity, UINT* helpContext)
{
    if (helpContext)
        *helpContext = 0;
    if (!text || capacity == 0)
        return FALSE;
    const size_t length = std::strlen(sentence);
    const size_t kept = length < capacity ? length : capacity - 1;
    std::memcpy(text, sentence, kept);
    text[kept] = 0;
    return kept > 0;
}

LPCSTR ArchiveSentence(int cause)
{
    switch (cause) {
    case CArchiveException::none:
        return "No error occurred.";
    case CArchiveException::readOnly:
        return "The archive is being loaded and cannot be written.";
    case CArchiveException::endOfFile:
        return "The file ends before its contents are complete.";
    case CArchiveException::writeOnly:
        return "The archive is being stored and cannot be read.";
    case CArchiveException::badIndex:
    case CArchiveException::badClass:
    case CArchiveException::badSchema:
        return "The file holds data of an unknown format.";
    case CArchiveException::bufferFull:
        return "The data does not fit into its buffer.";
    default:
        return "The archive cannot be used.";
    }
}

LPCSTR FileSentence(int cause)
{
    switch (cause) {
    case CFileException::none:
        return "No error occurred.";
    case CFileException::fileNotFound:
        return "The file was not found.";
    case CFileException::badPath:
        return "The path is not valid.";
    case CFileException::tooManyOpenFiles:
        return "Too many files are open.";
    case CFileException::accessDenied:
        return "Access to the file was denied.";
    case CFileException::invalidFile:
        return "The file is not open.";
    case CFileException::badSeek:
        return "The position lies outside of the file.";
    case CFileException::hardIO:
        return "The device reported a failure.";
    case CFileException::sharingViolation:
    case CFileException::lockViolation:
        return "The file is in use.";
    case CFileException::directoryFull:
    case CFileException::diskFull:
        return "There is no room left for the file.";
    case CFileException::endOfFile:
        return "The file ended early.";
    default:
        return "The file cannot be used.";
    }
}

/// The sentence behind the file that it is about, as far as that is known.
CString WithName(LPCSTR sentence, const CString& fileName)
{
    return fileName.IsEmpty() ? CString(sentence) : fileName + ": " + sentence;
}

} // namespace

void CException::Delete()
{
    if (m_autoDelete)
        delete this; // its classes are made with new only, by the functions that throw
}

BOOL CException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    return PutText("", text, capacity, helpContext);
}

BOOL CMemoryException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    return PutText("There is not enough memory.", text, capacity, helpContext);
}

BOOL CInvalidArgException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    return PutText("An argument is not valid.", text, capacity, helpContext);
}

BOOL CNotSupportedException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    return PutText("The operation is not supported.", text, capacity, helpContext);
}

CArchiveException::CArchiveException(int cause, LPCTSTR archiveName) : m_cause(cause), m_strFileName(archiveName) {}

BOOL CArchiveException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    return PutText(WithName(ArchiveSentence(m_cause), m_strFileName), text, capacity, helpContext);
}

CFileException::CFileException(int cause, LONG osError, LPCTSTR fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName)
{}

BOOL CFileException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    return PutText(WithName(FileSentence(m_cause), m_strFileName), text, capacity, helpContext);
}

void AfxThrowMemoryException()
{
    static CMemoryException exception(FALSE);
    throw &exception;
}

void AfxThrowInvalidArgException()
{
    static CInvalidArgException exception(FALSE);
    throw &exception;
}

void AfxThrowNotSupportedException()
{
    static CNotSupportedException exception(FALSE);
    throw &exception;
}

void AfxThrowArchiveException(int cause, LPCTSTR archiveName)
{
    throw new CArchiveException(cause, archiveName);
}

void AfxThrowFileException(int cause, LONG osError, LPCTSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}
