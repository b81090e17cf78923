#include "bench/bench.h"

void BenchMemory();
void BenchLists();
void BenchStrings();
void BenchDrawing();
void BenchDispatch();
void BenchStreams();
void BenchImages();

int main()
{
    BenchMemory();
    BenchLists();
    BenchStrings();
    BenchDrawing();
    BenchDispatch();
    BenchStreams();
    BenchImages();
    zkbench::Print();
    return 0;
}
