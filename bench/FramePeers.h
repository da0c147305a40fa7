/// The libraries whose drawing is measured beside Kolm's, each as a frame in memory without antialiasing. Those that
/// were not found when configuring are left out.
#pragma once

#ifdef KOLM_BENCH_CAIRO
#include "CairoFrame.h"
#endif
#ifdef KOLM_BENCH_QT
#include "QtFrame.h"
#endif
#ifdef KOLM_BENCH_AGG
#include "AggFrame.h"
#endif

namespace bench {

template <class Frame>
struct Peer
{
    using Type = Frame;
};

/// Calls `action` with a Peer of each.
template <class Action>
void ForEachPeer([[maybe_unused]] Action action)
{
#ifdef KOLM_BENCH_CAIRO
    action(Peer<CairoFrame>());
#endif
#ifdef KOLM_BENCH_QT
    action(Peer<QtFrame>());
#endif
#ifdef KOLM_BENCH_AGG
    action(Peer<AggFrame>());
#endif
}

} // namespace bench
