#include "foundation/CKObject.h"

namespace {

// Unsigned, so that the step past the largest int is defined; the numbers given out are its value read as an int.
unsigned int objectCounter = 0;

} // namespace

CKObject::CKObject() : m_objectNumber(static_cast<int>(++objectCounter)) {}

CKObject::~CKObject() = default;
