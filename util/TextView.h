#pragma once

#include <afx.h>

#include <string_view>

/// The bytes of a text, zero bytes included; valid until the text changes.
inline std::string_view TextView(const CString& text)
{
    return {LPCSTR(text), size_t(text.GetLength())};
}
