/// The export macro of the shared library: the one place that knows how a compiler spells "visible outside".
/// The build of the library defines KOLM_BUILDING; hosts do not.
#pragma once

/// A template that is compiled into the library is declared with KOLM_DECLARED_TEMPLATE and defined with
/// KOLM_DEFINED_TEMPLATE: compilers differ in which of the two has to carry the mark.
#if defined(_WIN32)
#if defined(KOLM_BUILDING)
#define KOLM_API __declspec(dllexport)
#define KOLM_DECLARED_TEMPLATE
#else
#define KOLM_API __declspec(dllimport)
#define KOLM_DECLARED_TEMPLATE __declspec(dllimport)
#endif
#define KOLM_DEFINED_TEMPLATE __declspec(dllexport)
#else
#define KOLM_API __attribute__((visibility("default")))
#define KOLM_DECLARED_TEMPLATE KOLM_API
#define KOLM_DEFINED_TEMPLATE
#endif
