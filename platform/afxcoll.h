/// The ready-made arrays of the platform.
#pragma once

#include <afx.h>

#include "base/CArray.h"

/// An array of texts, with the vocabulary of CArray. Its archive record is the count and then each text.
class KOLM_API CStringArray : public CArray<CString, const CString&>
{};
