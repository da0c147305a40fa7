#pragma once

/// Links the copies of one object in a ring, so that objects which all copies point to can be freed by whichever copy
/// lets go last. A fresh link is a ring of one. The ring holds no ownership itself: it only answers "does any other
/// copy still use this pointer?". Copies that live on different threads share their objects and with them this ring.
template <typename Owner>
class CopyRing
{
public:
    explicit CopyRing(Owner* owner) : m_owner(owner), m_previous(this), m_next(this) {} ///< a ring of one
    ~CopyRing() { Leave(); }
    CopyRing(const CopyRing&) = delete;
    CopyRing& operator=(const CopyRing&) = delete;

    /// Moves this link from its ring into the ring of `other`.
    void Join(const CopyRing& other)
    {
        Leave();
        m_previous = &other;
        m_next = other.m_next;
        m_next->m_previous = this;
        other.m_next = this;
    }

    /// Makes this link a ring of one.
    void Leave()
    {
        m_previous->m_next = m_next;
        m_next->m_previous = m_previous;
        m_previous = m_next = this;
    }

    /// True when another member of the ring has the same non-null pointer in `member`.
    template <typename T>
    bool IsShared(T* Owner::*member) const
    {
        const T* const object = m_owner->*member;
        for (const CopyRing* link = m_next; object && link != this; link = link->m_next) {
            if (link->m_owner->*member == object)
                return true;
        }
        return false;
    }

private:
    Owner* m_owner;
    // A copy is made from a constant source, whose neighbours change all the same.
    mutable const CopyRing* m_previous;
    mutable const CopyRing* m_next;
};
