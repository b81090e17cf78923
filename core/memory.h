#pragma once

// Called as each thread ends: its share of the live counts goes to the totals
// of ended threads, and its counting record to the next thread.
void vMemThreadEnds();
