/// Registration of extension modules: libraries that add classes to a host of this platform.
#pragma once

#include "base/CObject.h"

/// What a module keeps of itself; a static of the module, zeroed at first.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
};

/// Takes note of the module that was loaded; 1 also when that was done before. 0 for a null module.
KOLM_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);

/// Deletes the CDynLinkLibrary objects of the module and forgets it. Nothing for a module that is not initialized.
KOLM_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// One entry in the list of loaded extension modules. Made with new by the module when it is loaded; the list owns it
/// and AfxTermExtensionModule deletes it.
class KOLM_API CDynLinkLibrary : public CObject
{
public:
    /// Enters the module into the list, as its last.
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override; ///< leaves the list

    HMODULE m_hModule;
    CDynLinkLibrary* m_pNextDLL = nullptr; ///< the module entered next
};

/// The first entry of the list, for walking it along m_pNextDLL; null when no module is registered.
KOLM_API CDynLinkLibrary* AfxGetFirstExtension();
