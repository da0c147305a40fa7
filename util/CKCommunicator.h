#pragma once

#include "KolmApi.h"

#include <afx.h>

/// Fetches texts from the network. No data; copies copy nothing.
class KOLM_API CKCommunicator
{
public:
    virtual ~CKCommunicator() = default;

    /// The text at a URL with its lines joined directly: their line ends are lost, also a carriage return before a line
    /// feed. A URL that cannot be opened gives the empty text, as an empty resource does, and nobody is told. Blocks
    /// until all is there; the session uses the system's proxy settings. When the content breaks off while it is read,
    /// the internet exception passes to the caller.
    static CString OpenURL(CString url);
};
