#pragma once

#include "KolmApi.h"

/// Identity of everything that a board is made of: an object number from one counter of the process. The first object
/// gets 1, the next 2; numbers are never given twice until the counter, after 2147483647, goes on with -2147483648.
///
/// The number belongs to the content rather than to the storage: copies and assigned objects carry their source's.
/// The counter is not synchronised, so objects are made on one thread at a time (the host's user-interface thread).
/// The destructor is the only virtual operation.
class KOLM_API CKObject
{
public:
    /// Takes the next number.
    CKObject();
    /// Keeps the source's number; the counter does not move.
    CKObject(const CKObject& other) = default;
    virtual ~CKObject();

    /// Takes over the source's number; both carry the same one afterwards.
    CKObject& operator=(const CKObject& other) = default;

    int GetObjectNumber() const { return m_objectNumber; } ///< the number, also of copies
    /// Gives the object any number. What the next new object gets is not affected.
    void SetObjNumber(int n) { m_objectNumber = n; }
    /// 1 when the object carries this number, else 0.
    int IsSameObjectNumber(int n) { return n == m_objectNumber ? 1 : 0; }

private:
    int m_objectNumber;
};
