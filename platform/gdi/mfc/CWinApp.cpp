/// The application object and message boxes.
#include "gdi/mfc/windowclasses.h"

#include <cstdio>

namespace {

CWinApp* g_application = nullptr;

/// Line breaks become spaces: one message, one line.
int WriteMessage(LPCSTR text)
{
    for (const char* c = text != nullptr ? text : ""; *c != 0; ++c) {
        std::fputc(*c == '\n' || *c == '\r' ? ' ' : *c, stderr);
    }
    std::fputc('\n', stderr);
    return IDOK;
}

} // namespace

CWinApp::CWinApp() : m_former(g_application)
{
    g_application = this;
}

CWinApp::~CWinApp()
{
    // Applications need not go in the reverse order of their coming.
    CWinApp** link = &g_application;
    while (*link != nullptr && *link != this) {
        link = &(*link)->m_former;
    }
    if (*link == this) {
        *link = m_former;
    }
}

int CWinApp::DoMessageBox(LPCSTR text, UINT, UINT)
{
    return WriteMessage(text);
}

CWinApp* AfxGetApp()
{
    return g_application;
}

int AfxMessageBox(LPCSTR text, UINT type, UINT helpContext)
{
    return g_application != nullptr ? g_application->DoMessageBox(text, type, helpContext) : WriteMessage(text);
}
