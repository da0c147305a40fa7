#include "containers/CExPtrArray.h"

#include "foundation/CArrayPointD.h"
#include "foundation/CRectD.h"

// Exported as their declarations in the header say. Here the classes of the elements are known, which the Delete
// operations need.
template class CExPtrArray<CRectD*, CRectD*>;
template class CExPtrArray<CArrayPointD*, CArrayPointD*>;
