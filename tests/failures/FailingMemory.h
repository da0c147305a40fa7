/// Memory that cannot be had: lets the n-th allocation of an operation fail, for every n.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>

namespace failures {

/// While it lives, the n-th allocation of the program (from 1 on), or with `all` every one from the n-th on, is
/// refused. At most one at a time.
///
/// The program's own malloc and its kin stand in for those of the C library, so every allocation is seen: the
/// library's, those of operator new, of containers, of FreeType, fontconfig and libjpeg. Under AddressSanitizer only
/// operator new is replaced, since the sanitizer needs malloc for itself, and finds what is not freed.
class FailingAllocation
{
public:
    explicit FailingAllocation(size_t n, bool all = false);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether there were n allocations.
    bool Happened() const;
};

/// Blocks that were given out and not taken back; only differences mean something. Always 0 under AddressSanitizer.
size_t BlocksAlive();

} // namespace failures
