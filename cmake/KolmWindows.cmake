# Windows: an extension module of MFC, which comes with Visual C++ only. MFC is used as a DLL, since an extension module
# shares it with its host, and texts are narrow. The folder platform/ is neither compiled nor on the include path.
if(NOT MSVC)
    message(FATAL_ERROR "On Windows Kolm is an extension module of MFC and needs Visual C++ with MFC")
endif()
set(CMAKE_MFC_FLAG 2)

function(kolm_windows_settings target)
    # Hosts see the first three: they have to agree with the module on MFC, on the width of TCHAR, and on min and max,
    # which the headers take from the standard library.
    target_compile_definitions(${target}
        PUBLIC _AFXDLL _MBCS NOMINMAX
        PRIVATE _AFXEXT _CRT_SECURE_NO_WARNINGS)
    # No fused multiply-add and no reordering; the counterpart of -ffp-contract=off. Exceptions as MFC throws them.
    target_compile_options(${target} PUBLIC /fp:precise /Zc:__cplusplus PRIVATE /W3 /EHsc)
    # C4251, C4275: exported classes hold and derive from templates of MFC, which every user compiles alike.
    target_compile_options(${target} PUBLIC /wd4251 /wd4275)
    set_target_properties(${target} PROPERTIES MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>DLL")
endfunction()
