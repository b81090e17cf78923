#include "bench/bench.h"

void BenchMemory();
void BenchLists();
void BenchStrings();
void BenchDrawing();
void BenchDispatch();

int main()
{
    BenchMemory();
    BenchLists();
    BenchStrings();
    BenchDrawing();
    BenchDispatch();
    zkbench::Print();
    return 0;
}
