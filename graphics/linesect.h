#pragma once

#include "base/export.h"

// Where a scan line crosses a polygon edge, and which way that edge runs:
// the record that scan-line filling sorts along the line.
class ZKCORE_API LINESECT {
public:
    short Position() const;
    void Position(short position);
    int Direction() const;
    void Direction(int direction);

private:
    short position;
    int direction;
};
