#include "keynavigation.h"

#include <stdlib.h>

#include "../../base/banned.h"

namespace {

const CONSOLEKEY* Find(const std::vector<CONSOLEKEY>& keys, int id)
{
    for (const CONSOLEKEY& key : keys)
        if (key.id == id)
            return &key;
    return nullptr;
}

int CentreX(const CONSOLEKEY& key)
{
    return key.left + key.frameWidth / 2;
}

int CentreY(const CONSOLEKEY& key)
{
    return key.top + key.frameHeight / 2;
}

}  // namespace

int NeighbourKey(const std::vector<CONSOLEKEY>& keys, int from, KEYDIRECTION direction)
{
    const CONSOLEKEY* start = Find(keys, from);
    if (!start)
        return -1;
    int best = from;
    long bestScore = 0;
    for (const CONSOLEKEY& key : keys) {
        if (key.id == from)
            continue;
        const int dx = CentreX(key) - CentreX(*start);
        const int dy = CentreY(key) - CentreY(*start);
        int along = 0;
        int across = 0;
        switch (direction) {
        case KEYDIRECTION_LEFT: along = -dx; across = dy; break;
        case KEYDIRECTION_RIGHT: along = dx; across = dy; break;
        case KEYDIRECTION_UP: along = -dy; across = dx; break;
        case KEYDIRECTION_DOWN: along = dy; across = dx; break;
        }
        // Ahead and more ahead than aside; a key in line beats a nearer one off it.
        if (along <= 0 || abs(across) > along)
            continue;
        const long score = (long)along + 3L * abs(across);
        if (best == from || score < bestScore || (score == bestScore && key.id < best)) {
            best = key.id;
            bestScore = score;
        }
    }
    return best;
}
