/// Handles and the slots behind them.
#pragma once

#include "base/winkernel.h"

#include <cstdint>
#include <new>

class CObject;

namespace gdi {

enum class Kind : uint8_t
{
    Dc = 1,
    Pen,
    Brush,
    Font,
    Bitmap,
    Palette,
    Window
};

/// What every slot begins with. A handle is kind (8 bits), generation (32) and slot (24) in one word; the slot
/// remembers the word it answers to, so that checking a handle is one comparison.
struct Slot
{
    uint64_t handle = 0;          ///< 0 while the slot is free
    uint32_t generation = 0;      ///< grows with every use of the slot
    uint32_t number = 0;          ///< in its pool, from 1
    Slot* nextFree = nullptr;     ///< null ends the list
    uint32_t references = 0;      ///< device contexts that have the object selected
    bool condemned = false;       ///< deleted while selected: freed with the last reference
    bool stock = false;           ///< never freed, never counted
    CObject* owner = nullptr;     ///< the wrapper that owns the handle
    CObject* temporary = nullptr; ///< the wrapper of handles of this slot without an owner, once it was made
};

inline uint64_t HandleBits(const void* handle)
{
    return reinterpret_cast<uintptr_t>(handle);
}

inline Kind HandleKind(const void* handle)
{
    return Kind(HandleBits(handle) >> 56);
}

/// Slots of one kind at addresses that never change. Freed slots are used again, with the buffers that their objects
/// keep. Constant-initialised and never torn down, so that objects of the host with static storage may outlive
/// everything else.
template <class T, Kind kind>
class HandlePool
{
public:
    static constexpr uint32_t kChunk = sizeof(T) > 256 ? 32 : 256;
    static constexpr uint32_t kChunks = 4096;

    constexpr HandlePool() = default;

    /// The live object of a handle; null for anything else.
    T* Find(const void* handle) const
    {
        T* const recent = Recent(HandleBits(handle));
        return __builtin_expect(recent != nullptr, 1) ? recent : FindOther(HandleBits(handle));
    }

    /// The same when it is the object made last or the one that was searched for last; null otherwise. Drawing asks for
    /// the same device context and stock pen again and again, and for the pen that it has just made.
    T* Recent(uint64_t bits) const
    {
        if (__builtin_expect(bits == m_foundBits, 1)) {
            return m_found;
        }
        return kind != Kind::Dc && bits == m_madeBits ? m_made : nullptr;
    }

    /// The handle names a slot that was in use once, whatever became of it.
    bool Covers(const void* handle) const
    {
        const uint32_t slot = SlotOf(HandleBits(handle));
        return slot > 0 && slot < m_used;
    }

    /// A slot with a new handle; null when there is no memory (ERROR_NOT_ENOUGH_MEMORY is set) or no slot left.
    T* Create()
    {
        T* const free = m_firstFree != nullptr ? m_firstFree : Extend();
        if (free == nullptr) {
            return nullptr;
        }
        T& object = *free;
        m_firstFree = static_cast<T*>(object.nextFree);
        ++object.generation;
        object.handle = uint64_t(kind) << 56 | uint64_t(object.generation) << 24 | object.number;
        object.references = 0;
        object.condemned = object.stock = false;
        object.owner = nullptr;
        ++m_live;
        m_made = &object;
        m_madeBits = object.handle;
        return &object;
    }

    /// Ends the handle; the object's own resources are the caller's business.
    void Free(T& object)
    {
        if (m_madeBits == object.handle) {
            m_madeBits = kNobody;
            m_made = nullptr; // also for a caller who makes up that very number
        }
        if (m_foundBits == object.handle) {
            m_foundBits = kNobody;
            m_found = nullptr;
        }
        object.handle = 0;
        object.nextFree = m_firstFree;
        m_firstFree = &object;
        --m_live;
    }

    void MakeStock(T& object)
    {
        object.stock = true;
        --m_live;
    }

    uint32_t Live() const { return m_live; } ///< stock objects left out

    template <class Action>
    void ForEach(Action action) const
    {
        for (uint32_t slot = 1; slot < m_used; ++slot) {
            if (At(slot).handle != 0) {
                action(At(slot));
            }
        }
    }

    static uint32_t SlotOf(uint64_t handle) { return uint32_t(handle & 0xFFFFFF); }

private:
    __attribute__((noinline)) T* FindOther(uint64_t bits) const
    {
        const uint32_t slot = uint32_t(bits & 0xFFFFFF);
        if (slot >= m_used || slot == 0) {
            return nullptr;
        }
        T& object = At(slot);
        if (object.handle != bits) {
            return nullptr;
        }
        m_found = &object;
        m_foundBits = bits;
        return &object;
    }

    T& At(uint32_t slot) const { return m_chunks[slot / kChunk][slot % kChunk]; }

    /// A slot that was never used; null when there is none. Slot 0 is never given out.
    __attribute__((noinline)) T* Extend()
    {
        if (m_used % kChunk == 0) {
            if (m_used / kChunk >= kChunks) {
                return nullptr;
            }
            T* const chunk = new (std::nothrow) T[kChunk];
            if (chunk == nullptr) {
                SetLastError(ERROR_NOT_ENOUGH_MEMORY);
                return nullptr;
            }
            m_chunks[m_used / kChunk] = chunk;
            m_used += m_used == 0;
        }
        T& object = At(m_used);
        object.number = m_used++;
        return &object;
    }

    T* m_chunks[kChunks] = {};
    static constexpr uint64_t kNobody = ~uint64_t(0); ///< no kind has this number

    T* m_made = nullptr; ///< the object given out last and the one searched for last, with their handles
    mutable T* m_found = nullptr;
    uint64_t m_madeBits = kNobody;
    mutable uint64_t m_foundBits = kNobody;
    uint32_t m_used = 0;
    T* m_firstFree = nullptr;
    uint32_t m_live = 0;
};

template <class Handle>
Handle MakeHandle(const Slot& slot)
{
    return reinterpret_cast<Handle>(uintptr_t(slot.handle));
}

} // namespace gdi
