#pragma once

#include "KolmApi.h"

#include "foundation/CKRectD.h"

#include <afxtempl.h>

/// A list of pointers to rectangles that outlive it unless they are destroyed on purpose: its destructor frees only the
/// buffer. Null elements are allowed.
class KOLM_API CKRectDArray : public CArray<CKRectD*, CKRectD*>
{
public:
    CKRectDArray();

    /// Destroys the rectangles from the first to the last, then empties the list and frees its buffer.
    void DeleteElements();
    /// 1 when both lists hold the same objects at the same indices, else 0: rectangles with equal edges are not enough.
    int operator==(const CKRectDArray& other) const;
};
