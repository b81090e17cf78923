#include "bench/bench.h"

void BenchMemory();
void BenchLists();
void BenchStrings();
void BenchDrawing();

int main()
{
    BenchMemory();
    BenchLists();
    BenchStrings();
    BenchDrawing();
    zkbench::Print();
    return 0;
}
