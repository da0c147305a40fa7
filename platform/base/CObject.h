/// The root of the platform's classes.
#pragma once

#include "base/wintypes.h"

class CArchive;

/// Root of arrays, files and exceptions: a virtual destructor and an archive hook. Objects are not copied unless a
/// class says how.
class KOLM_API CObject
{
public:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject();

    /// Writes the object to a storing archive or reads it from a loading one. The root has nothing to write.
    virtual void Serialize(CArchive& ar);

protected:
    CObject() = default; ///< only as a part of something
};
