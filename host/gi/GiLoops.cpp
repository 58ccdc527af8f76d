// Areas of rings and the even-odd point test.
#include "AcGiReceivers.h"

double giLoopArea(const std::vector<AcGePoint3d>& loop) {
    double twice = 0.0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const AcGeVector3d a = loop[i] - loop.front(); // near the ring: no loss far from the origin
        const AcGeVector3d b = loop[(i + 1) % loop.size()] - loop.front();
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2.0;
}

bool giPointInLoops(const AcGePoint3d& p, const AcGiFillLoops& loops) {
    bool inside = false;
    for (const auto& loop : loops)
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const AcGePoint3d& a = loop[i];
            const AcGePoint3d& b = loop[(i + 1) % loop.size()];
            if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
                inside = !inside;
        }
    return inside;
}
