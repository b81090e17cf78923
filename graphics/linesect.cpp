#include "graphics/linesect.h"

short LINESECT::Position() const
{
    return position;
}

void LINESECT::Position(short position)
{
    this->position = position;
}

int LINESECT::Direction() const
{
    return direction;
}

void LINESECT::Direction(int direction)
{
    this->direction = direction;
}
