/// An object for the whole process.
#pragma once

#include <new>

/// The process's one T, made by the first call without asking for memory, so that this call can't fail. Never
/// destroyed: statics of a host may use it while the process ends.
template <class T>
T& Immortal()
{
    alignas(T) static unsigned char place[sizeof(T)];
    static T* const object = new (place) T;
    return *object;
}
