#include "containers/CExPtrArray.h"

#include "foundation/CArrayPointD.h"
#include "foundation/CRectD.h"

// Exported as their declarations in the header say. Here the classes of the elements are known, which the Delete
// operations need.
template class KOLM_DEFINED_TEMPLATE CExPtrArray<CRectD*, CRectD*>;
template class KOLM_DEFINED_TEMPLATE CExPtrArray<CArrayPointD*, CArrayPointD*>;
