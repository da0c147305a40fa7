#include "util/CKCommunicator.h"

#include <afxinet.h>

#include <memory>

CString CKCommunicator::OpenURL(CString url)
{
    // Declared in this order, the file goes before the session that opened it, also when an exception passes.
    std::unique_ptr<CInternetSession> session;
    std::unique_ptr<CStdioFile> file;
    try {
        session = std::make_unique<CInternetSession>();
        file.reset(session->OpenURL(url, 1, INTERNET_FLAG_TRANSFER_ASCII, nullptr, 0));
    } catch (CInternetException* e) {
        e->Delete();
    }
    CString result;
    if (file) {
        for (CString line; file->ReadString(line);)
            result += line;
        file->Close();
        file.reset();
    }
    if (session)
        session->Close();
    return result;
}
