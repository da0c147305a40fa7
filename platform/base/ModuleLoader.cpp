/// Calls the module's entry as the platform's loader does. The build links this file last, so that its static is made
/// after all others of the library and destroyed before them: the module may use every other static at both times.
#include <afxdllx.h>

#include <cstdio>
#include <cstdlib>

namespace {

const char g_moduleAnchor = 0;

/// The module handle: an address within the library, unique in the process and as long-lived as the library.
HINSTANCE ModuleHandle()
{
    return reinterpret_cast<HINSTANCE>(const_cast<char*>(&g_moduleAnchor));
}

class ModuleLoader
{
public:
    ModuleLoader()
    {
        if (!DllMain(ModuleHandle(), DLL_PROCESS_ATTACH, nullptr)) {
            // The system's loader has no way to refuse a library from within; a process that goes on would use it.
            std::fputs("Kolm: the library could not be initialized\n", stderr);
            std::abort();
        }
    }
    ~ModuleLoader() { DllMain(ModuleHandle(), DLL_PROCESS_DETACH, nullptr); }
};

const ModuleLoader g_moduleLoader;

} // namespace
