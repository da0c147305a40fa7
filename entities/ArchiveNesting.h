#pragma once

/// How deep container records lie in each other while they are written or read on this thread. Boards need two or three
/// levels; an archive made to harm could nest as many as it has bytes, and each takes some hundred bytes of stack.
class ArchiveNesting
{
public:
    static constexpr int kDeepest = 128;

    /// One container record. Raises the archive's bad-schema exception when it would lie too deep; leaves its level
    /// when an exception passes, too.
    ArchiveNesting();
    ~ArchiveNesting();
    ArchiveNesting(const ArchiveNesting&) = delete;
    ArchiveNesting& operator=(const ArchiveNesting&) = delete;

    /// Raises the same exception when no container may lie here.
    static void RequireRoom();
};
