/// Wrappers for handles that no object owns.
#pragma once

#include "base/winkernel.h"
#include "gdi/HandleTable.h"
#include "gdi/mfc/gdiobjects.h"

#include <cstdint>
#include <map>
#include <new>

namespace gdi {

/// Makes the temporary wrapper of a live object's slot; null when memory ran out.
CGdiObject* NewTemporaryOf(Slot& object);

/// What FromHandle gives for a live object: its owner or else the temporary wrapper of its slot.
inline CGdiObject* WrapperOf(Slot& object)
{
    if (object.owner != nullptr) {
        return static_cast<CGdiObject*>(object.owner);
    }
    CGdiObject* const wrapper = static_cast<CGdiObject*>(object.temporary);
    if (wrapper == nullptr) {
        return NewTemporaryOf(object);
    }
    wrapper->m_hObject = MakeHandle<HGDIOBJ>(object);
    return wrapper;
}

/// At most one wrapper for each slot of a handle table, made on first use and reused ever after. Lookups of the slot
/// asked for last cost a comparison: drawing code asks for the same stock object again and again.
template <class Wrapper>
class TemporaryWrappers
{
public:
    constexpr TemporaryWrappers() = default;

    /// The wrapper of the handle's slot, without its handle set; null when memory ran out. The wrapper is never
    /// destroyed, so it never deletes what it shows.
    Wrapper* At(uint64_t handle)
    {
        const uint32_t slot = uint32_t(handle & 0xFFFFFF);
        if (m_last == nullptr || slot != m_lastSlot) {
            m_last = Find(slot);
            m_lastSlot = slot;
        }
        return m_last;
    }

private:
    Wrapper* Find(uint32_t slot)
    {
        try {
            if (m_wrappers == nullptr) {
                m_wrappers = new std::map<uint32_t, Wrapper*>;
            }
            Wrapper*& wrapper = (*m_wrappers)[slot];
            if (wrapper == nullptr) {
                wrapper = new Wrapper;
            }
            return wrapper;
        } catch (const std::bad_alloc&) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return nullptr;
        }
    }

    std::map<uint32_t, Wrapper*>* m_wrappers = nullptr; ///< never freed, as the tables are not
    Wrapper* m_last = nullptr;
    uint32_t m_lastSlot = 0;
};

} // namespace gdi
