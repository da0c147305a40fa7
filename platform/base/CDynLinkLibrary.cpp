#include "base/CDynLinkLibrary.h"

namespace {

// A plain pointer: it is valid before any static of the process is made and after the last one is gone.
CDynLinkLibrary* g_firstExtension = nullptr;

/// The link that points to an entry, for cutting it out; with null the link at the end, for adding one.
CDynLinkLibrary** LinkTo(const CDynLinkLibrary* entry)
{
    CDynLinkLibrary** link = &g_firstExtension;
    while (*link && *link != entry)
        link = &(*link)->m_pNextDLL;
    return link;
}

} // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module)
{
    if (state.bInitialized)
        return TRUE;
    if (!module)
        return FALSE;
    state.hModule = module;
    state.bInitialized = TRUE;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    if (!state.bInitialized)
        return;
    for (CDynLinkLibrary* entry = g_firstExtension; entry;) {
        CDynLinkLibrary* next = entry->m_pNextDLL; // read before the entry may go
        if (entry->m_hModule == state.hModule)
            delete entry;
        entry = next;
    }
    state.bInitialized = FALSE;
    state.hModule = nullptr;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL) : m_hModule(state.hModule)
{
    *LinkTo(nullptr) = this;
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    *LinkTo(this) = m_pNextDLL;
}

CDynLinkLibrary* AfxGetFirstExtension()
{
    return g_firstExtension;
}
