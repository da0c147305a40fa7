#include <afx.h>

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <vector>

// The library's entry once more, under a name of its own and with a module record of its own.
#define DllMain EntryOfASecondModule
#include "module/DllMain.cpp"
#undef DllMain

namespace {

std::vector<HMODULE> RegisteredModules()
{
    std::vector<HMODULE> modules;
    for (const CDynLinkLibrary* entry = AfxGetFirstExtension(); entry; entry = entry->m_pNextDLL)
        modules.push_back(entry->m_hModule);
    return modules;
}

TEST(Module, TheLibraryRegistersItselfWhenLoaded)
{
    const std::vector<HMODULE> modules = RegisteredModules();
    ASSERT_EQ(modules.size(), 1u);
    Dl_info ofModule, ofLibrary;
    ASSERT_NE(dladdr(modules[0], &ofModule), 0);
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&AfxGetFirstExtension), &ofLibrary), 0);
    EXPECT_EQ(ofModule.dli_fbase, ofLibrary.dli_fbase) << "its handle is an address of its own";
}

TEST(Module, ModulesComeAndGo)
{
    const std::vector<HMODULE> before = RegisteredModules();
    int places[2];
    const HMODULE firstHandle = reinterpret_cast<HMODULE>(&places[0]);
    const HMODULE secondHandle = reinterpret_cast<HMODULE>(&places[1]);
    AFX_EXTENSION_MODULE firstModule = {}, secondModule = {};

    EXPECT_FALSE(AfxInitExtensionModule(firstModule, nullptr));
    EXPECT_TRUE(AfxInitExtensionModule(firstModule, firstHandle));
    EXPECT_TRUE(AfxInitExtensionModule(firstModule, secondHandle)) << "initialized before";
    EXPECT_EQ(firstModule.hModule, firstHandle);
    EXPECT_TRUE(AfxInitExtensionModule(secondModule, secondHandle));
    new CDynLinkLibrary(firstModule);
    new CDynLinkLibrary(secondModule);
    new CDynLinkLibrary(firstModule);

    std::vector<HMODULE> expected = before;
    expected.insert(expected.end(), {firstHandle, secondHandle, firstHandle});
    EXPECT_EQ(RegisteredModules(), expected);
    AfxTermExtensionModule(firstModule);
    expected = before;
    expected.push_back(secondHandle);
    EXPECT_EQ(RegisteredModules(), expected) << "all entries of one module go, no others";
    AfxTermExtensionModule(firstModule);
    AfxTermExtensionModule(secondModule);
    EXPECT_EQ(RegisteredModules(), before);
}

TEST(Module, TheEntryRegistersAndRefuses)
{
    const std::vector<HMODULE> before = RegisteredModules();
    EXPECT_EQ(EntryOfASecondModule(nullptr, DLL_PROCESS_ATTACH, nullptr), 0)
        << "what cannot be initialized fails the load";
    EXPECT_EQ(RegisteredModules(), before);
    int place;
    const HMODULE handle = reinterpret_cast<HMODULE>(&place);
    EXPECT_EQ(EntryOfASecondModule(handle, DLL_PROCESS_ATTACH, nullptr), 1);
    std::vector<HMODULE> expected = before;
    expected.push_back(handle);
    EXPECT_EQ(RegisteredModules(), expected);
    EXPECT_EQ(EntryOfASecondModule(handle, DLL_PROCESS_DETACH, nullptr), 1);
    EXPECT_EQ(RegisteredModules(), before);
}

} // namespace
