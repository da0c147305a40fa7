#pragma once

#include <afxtempl.h>

#include <algorithm>
#include <cstdint>

/// The short-lived table by which list operations look elements up in constant time: which keys there are. Keys are any
/// 64 bits, such as the value of a pointer or a number.
///
/// Few keys need no memory from the heap. More raise the platform's memory exception when there is none; a list
/// operation therefore makes its table before it changes the list.
class KeySet
{
public:
    /// Has room for `keys` different keys and holds none. It does not grow: more must not be inserted.
    explicit KeySet(INT_PTR keys)
    {
        if (keys > kMostKeys)
            AfxThrowMemoryException();
        // At most half of the slots are taken, so a search meets an empty one, and soon.
        for (; INT_PTR(m_mask) + 1 < 2 * keys; --m_shift)
            m_mask = 2 * m_mask + 1;
        if (m_mask + 1 > kFewSlots) {
            m_heap.SetSize(GetSlotCount());
            m_slots = m_heap.GetData();
        }
        m_slots[m_mask + 1] = 1;
    }
    KeySet(const KeySet&) = delete;
    KeySet& operator=(const KeySet&) = delete;

    /// Makes the key a known one; whether it is new.
    bool Insert(uint64_t key)
    {
        uint64_t& slot = m_slots[SlotOf(key)];
        const bool isNew = slot != key;
        slot = key;
        return isNew;
    }
    bool Has(uint64_t key) const { return m_slots[SlotOf(key)] == key; } ///< whether it was inserted

protected:
    /// One more than the largest number of a slot.
    INT_PTR GetSlotCount() const { return INT_PTR(m_mask) + 2; }

    void SetKey(uint32_t slot, uint64_t key) { m_slots[slot] = key; } ///< as SlotOf found it

    /// The number of the slot that holds the key, or of the empty one where it belongs.
    uint32_t SlotOf(uint64_t key) const
    {
        // The key 0, which marks empty slots, has one of its own behind the others.
        if (key == 0)
            return m_mask + 1;
        // Addresses and numbers often lie at equal distances. The fold breaks up the distances at which a
        // multiplication alone puts keys into runs of neighbours; the upper bits of the product depend on all bits
        // below them.
        uint32_t slot = uint32_t(((key ^ (key >> 15)) * 0x9E3779B97F4A7C15u) >> m_shift);
        // On while the slot is neither the key's nor empty: one branch, since which of the two it is cannot be
        // predicted.
        while (std::min(m_slots[slot], m_slots[slot] ^ key) != 0)
            slot = (slot + 1) & m_mask;
        return slot;
    }

private:
    static constexpr int kFewBits = 5;
    static constexpr uint32_t kFewSlots = 1 << kFewBits;
    static constexpr INT_PTR kMostKeys = 1 << 30; ///< eight gigabytes of pointers

    // Not as wide as a key: a compiler can then tell that storing one changes neither of these.
    uint32_t m_mask = kFewSlots - 1; ///< the number of slots, a power of two, less one
    int m_shift = 64 - kFewBits;     ///< leaves as many bits of a product as the number of a slot has
    uint64_t m_few[kFewSlots + 1]{};
    CArray<uint64_t, uint64_t> m_heap;
    uint64_t* m_slots = m_few; ///< a key each, 0 in an empty one; then that of the key 0, which holds 1 when empty
};

/// How often each key occurs.
class KeyCounts : private KeySet
{
public:
    /// Room as in a KeySet.
    explicit KeyCounts(INT_PTR keys) : KeySet(keys) { m_counts.SetSize(GetSlotCount()); }
    /// The count of a key that becomes a known one; 0 at first.
    uint32_t& InsertedCount(uint64_t key)
    {
        const uint32_t slot = SlotOf(key);
        SetKey(slot, key);
        return m_counts.GetData()[slot];
    }
    /// The count of any key: 0, which has to stay, for one that is not known.
    uint32_t& Count(uint64_t key) { return m_counts.GetData()[SlotOf(key)]; }

private:
    CArray<uint32_t, uint32_t> m_counts; ///< beside the keys, since a search only reads these
};
