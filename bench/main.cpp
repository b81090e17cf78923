#include "bench/bench.h"

void BenchMemory();
void BenchLists();
void BenchStrings();

int main()
{
    BenchMemory();
    BenchLists();
    BenchStrings();
    zkbench::Print();
    return 0;
}
