// Where the arrow keys lead on the console picture: to the nearest key in
// the arrow's direction, by the keys' places (extension strips included).
#pragma once

#include <vector>

#include "keygeometry.h"

enum KEYDIRECTION { KEYDIRECTION_LEFT, KEYDIRECTION_RIGHT, KEYDIRECTION_UP, KEYDIRECTION_DOWN };

// The id of the neighbour of key `from` in that direction; `from` itself when
// none lies that way, -1 when `from` is not among the keys.
int NeighbourKey(const std::vector<CONSOLEKEY>& keys, int from, KEYDIRECTION direction);
