#pragma once

#include <afxtempl.h>

#include <algorithm>
#include <cstdint>

/// The short-lived table by which list operations look elements up in constant time. Keys are any 64 bits, such as the
/// value of a pointer or a number. SLOT has a member `key` and, for tables that count, a member `count`.
///
/// Few keys need no memory from the heap. More raise the platform's memory exception when there is none; a list
/// operation therefore makes its table before it changes the list.
template <class SLOT>
class KeyTable
{
public:
    /// Has room for `keys` different keys and holds none. It does not grow: more must not be inserted.
    explicit KeyTable(INT_PTR keys)
    {
        // At most half of the slots are taken, so a search meets an empty one, and soon.
        while (m_mask + 1 < 2 * keys)
            m_mask = 2 * m_mask + 1;
        if (m_mask + 1 > kFewSlots) {
            m_heap.SetSize(m_mask + 1);
            m_slots = m_heap.GetData();
        }
        m_zero.key = 1;
    }
    KeyTable(const KeyTable&) = delete;
    KeyTable& operator=(const KeyTable&) = delete;

    /// Makes the key a known one; whether it is new.
    bool Insert(uint64_t key)
    {
        SLOT& slot = SlotOf(key);
        const bool isNew = slot.key != key;
        slot.key = key;
        return isNew;
    }
    bool Has(uint64_t key) { return SlotOf(key).key == key; } ///< whether the key was made known

    /// The count of a key that becomes a known one; 0 at first.
    INT_PTR& InsertedCount(uint64_t key)
    {
        SLOT& slot = SlotOf(key);
        slot.key = key;
        return slot.count;
    }
    /// The count of any key: 0, which has to stay, for one that is not known.
    INT_PTR& Count(uint64_t key) { return SlotOf(key).count; }

private:
    static constexpr INT_PTR kFewSlots = 32;

    /// The slot that holds the key, or the empty one where it belongs.
    SLOT& SlotOf(uint64_t key)
    {
        if (key == 0)
            return m_zero;
        // Addresses differ in a few middle bits and often lie at equal distances. Two multiplications spread any such
        // pattern; a single one leaves runs of neighbours for some distances.
        uint64_t hash = key * 0x9E3779B97F4A7C15u;
        hash = (hash ^ (hash >> 32)) * 0xD6E8FEB86659FD93u;
        INT_PTR slot = INT_PTR(hash >> 32) & m_mask;
        // On while the slot is neither the key's nor empty: one branch, since which of the two it is cannot be
        // predicted.
        while (std::min(m_slots[slot].key, m_slots[slot].key ^ key) != 0)
            slot = (slot + 1) & m_mask;
        return m_slots[slot];
    }

    INT_PTR m_mask = kFewSlots - 1; ///< the number of slots, a power of two, less one
    SLOT m_zero{};                  ///< of the key 0, which marks empty slots among the others; its key is 1 when empty
    SLOT m_few[kFewSlots]{};
    CArray<SLOT, const SLOT&> m_heap;
    SLOT* m_slots = m_few;
};

/// A slot of a table that only knows its keys.
struct KeySlot
{
    uint64_t key = 0; ///< 0 in an empty slot
};

/// A slot of a table that counts.
struct CountSlot
{
    uint64_t key = 0;  ///< 0 in an empty slot
    INT_PTR count = 0; ///< as the owner of the table keeps it
};

/// Which keys occur.
using KeySet = KeyTable<KeySlot>;
/// How often each key occurs.
using KeyCounts = KeyTable<CountSlot>;
