/// Registration of the library as an extension module. There is no other start-up or shut-down work.
#include <afxdllx.h>

static AFX_EXTENSION_MODULE KolmModule = {FALSE, nullptr};

/// 0 at attach, which fails the load, when the platform does not take the module.
extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(KolmModule, instance))
            return 0;
        new CDynLinkLibrary(KolmModule); // the platform's list owns it until AfxTermExtensionModule
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(KolmModule);
    }
    return 1;
}
