/// The export macro of the shared library: the one place that knows how a compiler spells "visible outside".
/// The build of the library defines KOLM_BUILDING; hosts do not.
#pragma once

#if defined(_MSC_VER)
#if defined(KOLM_BUILDING)
#define KOLM_API __declspec(dllexport)
#else
#define KOLM_API __declspec(dllimport)
#endif
#else
#define KOLM_API __attribute__((visibility("default")))
#endif
