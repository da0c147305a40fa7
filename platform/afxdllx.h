/// What a module includes, once, in the file with its DllMain.
#pragma once

#include <afx.h>

/// The module's own entry: called with DLL_PROCESS_ATTACH after the module's statics were made and with
/// DLL_PROCESS_DETACH before they go. 0 at attach says that the module cannot be used.
extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);
