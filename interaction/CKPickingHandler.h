#pragma once

#include "KolmApi.h"

#include "interaction/CKPcbElementInfoArray.h"
#include "painter/CopyRing.h"

class CKPainter;

/// The base of a host's picking: keeps a list of records of what was hit. The hit test is the host's, which overrides
/// the Picking that takes a list and appends a record for each hit; there the records belong to the handler.
///
/// Nothing empties the list by itself: records of one pick stay when the next one comes, until
/// DeleteAllPickingInfoElements. The handler owns its list and the records in it, never the entities.
///
/// Copies made by construction or assignment share one list, and the last handler that refers to it frees it. The
/// destructor is not virtual: a handler on the heap is deleted as the class that it was made as. A host that overrides
/// one Picking repeats the other's name with a using-declaration, or it is hidden.
class KOLM_API CKPickingHandler
{
public:
    CKPickingHandler();                               ///< with a new, empty list
    CKPickingHandler(const CKPickingHandler& source); ///< shares the source's list
    /// Shares the source's list. The list held before is not freed: it stays with the handlers that shared it, and the
    /// list of a handler that was alone becomes the caller's, who asks for it first (GetPickingInfoArray).
    CKPickingHandler& operator=(const CKPickingHandler& source);
    ~CKPickingHandler();

    // The virtual operations, in the order of their slots.

    /// Host hook: the painter of the view that is picked in. Here null.
    virtual CKPainter* GetPainter();
    /// Host hook, the hit test: appends what lies at (x, y) to `list` and returns a number that goes to the caller as
    /// it is. `list` is never null when the handler calls. Here nothing is found: 0.
    virtual int Picking(CKPcbElementInfoArray* list, unsigned int flags, int x, int y);
    /// Runs the hit test with the handler's own list and returns its result. The last argument is not used.
    virtual int Picking(unsigned int flags, int x, int y, int unused);
    /// Host hook: takes back the picked state of what was picked. Here nothing.
    virtual void Unpicking();
    virtual int IsPick(); ///< 1 when there is a record, else 0
    /// The list itself, which stays the handler's.
    virtual CKPcbElementInfoArray* GetPickingInfoArray();

    int IsEmptyPickingInfo() { return HasRecords() ? 0 : 1; } ///< 1 without records, else 0
    /// Appends the record, from then on the handler's. Null is ignored. A record added twice would be freed twice.
    void AddPickingInfo(CKPcbElementInfo* info);
    /// Destroys all records, from the first to the last, for every handler that shares the list.
    void DeleteAllPickingInfoElements();

private:
    bool HasRecords() const { return m_list && !m_list->IsEmpty(); }

    CKPcbElementInfoArray* m_list;
    CopyRing<CKPickingHandler> m_copies;
};
