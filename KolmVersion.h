/// Two versions that change apart from each other: that of the library and that of the archive records.
#pragma once

#include "KolmApi.h"

/// The version of the library that is loaded, "major.minor.patch" in the sense of semantic versioning; static text. The
/// one that a host was built with is what find_package or pkg-config said at the time.
KOLM_API const char* KolmVersion();

/// What every archive record and section begins with. It changes only with the layout of a record, whatever becomes of
/// the library's own version. A reader takes every version from 1 on for the layout that it knows.
constexpr int kKolmArchiveVersion = 1;
