#include <algorithm>
#include <list>
#include <vector>

#include "base/int.h"
#include "base/list.h"
#include "bench/bench.h"

namespace {

const unsigned long items = 100000;
// Searching is linear in both, so a thousand searches over the whole list
// say as much as a hundred thousand would.
const unsigned long searches = 1000;

std::vector<vINT>& Objects()
{
    static std::vector<vINT> objects(items);
    return objects;
}

// Both lists holding every object, for the rows that only read.
struct FilledLists {
    FilledLists()
    {
        for (vINT& object : Objects()) {
            ours.Append(object);
            reference.push_back(&object);
        }
    }
    fLIST ours;
    std::list<const vOBJECT*> reference;
};

void Append()
{
    zkbench::Measure ours = zkbench::Time([] {
        fLIST list;
        for (vINT& object : Objects())
            list.Append(object);
    }, items);
    zkbench::Measure theirs = zkbench::Time([] {
        std::list<const vOBJECT*> list;
        for (vINT& object : Objects())
            list.push_back(&object);
    }, items);
    zkbench::Record("lists.append", "std::list push_back", ours, theirs);
}

void Search()
{
    FilledLists lists;
    fLIST& list = lists.ours;
    std::list<const vOBJECT*>& reference = lists.reference;
    zkbench::Measure ours = zkbench::Time([&list] {
        for (unsigned long n = 0; n < searches; ++n)
            zkbench::Keep(list.Search(Objects()[items - 1 - n]));
    }, searches * items / 2);
    zkbench::Measure theirs = zkbench::Time([&reference] {
        for (unsigned long n = 0; n < searches; ++n)
            zkbench::Keep(std::find(reference.begin(), reference.end(), &Objects()[items - 1 - n]) != reference.end());
    }, searches * items / 2);
    zkbench::Record("lists.search", "std::find on std::list", ours, theirs);
}

void RemoveInOrder()
{
    zkbench::Measure ours = zkbench::Time([] {
        fLIST list;
        for (vINT& object : Objects())
            list.Append(object);
        for (vINT& object : Objects())
            list.Remove(object);
    }, 2 * items);
    zkbench::Measure theirs = zkbench::Time([] {
        std::list<const vOBJECT*> list;
        for (vINT& object : Objects())
            list.push_back(&object);
        for (vINT& object : Objects())
            list.erase(std::find(list.begin(), list.end(), &object));
    }, 2 * items);
    zkbench::Record("lists.append+remove", "std::list push_back+erase", ours, theirs);
}

void Walk()
{
    FilledLists lists;
    fLIST& list = lists.ours;
    std::list<const vOBJECT*>& reference = lists.reference;
    zkbench::Measure ours = zkbench::Time([&list] {
        long sum = 0;
        for (fLINK* link = list.Next(nullptr); link; link = list.Next(link))
            sum += static_cast<vINT*>(link->Object())->operator()();
        zkbench::Keep(sum);
    }, items);
    zkbench::Measure theirs = zkbench::Time([&reference] {
        long sum = 0;
        for (const vOBJECT* object : reference)
            sum += static_cast<const vINT*>(object)->operator()();
        zkbench::Keep(sum);
    }, items);
    zkbench::Record("lists.walk", "std::list iteration", ours, theirs);
}

}  // namespace

void BenchLists()
{
    Append();
    Search();
    RemoveInOrder();
    Walk();
}
