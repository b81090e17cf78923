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
    zkbench::Record("lists.append", "std::list push_back", zkbench::Compare([] {
        fLIST list;
        for (vINT& object : Objects())
            list.Append(object);
    }, [] {
        std::list<const vOBJECT*> list;
        for (vINT& object : Objects())
            list.push_back(&object);
    }, items));
}

void Search()
{
    FilledLists lists;
    fLIST& list = lists.ours;
    std::list<const vOBJECT*>& reference = lists.reference;
    zkbench::Record("lists.search", "std::find on std::list", zkbench::Compare([&list] {
        for (unsigned long n = 0; n < searches; ++n)
            zkbench::Keep(list.Search(Objects()[items - 1 - n]));
    }, [&reference] {
        for (unsigned long n = 0; n < searches; ++n)
            zkbench::Keep(std::find(reference.begin(), reference.end(), &Objects()[items - 1 - n]) != reference.end());
    }, searches * items / 2));
}

void RemoveInOrder()
{
    zkbench::Record("lists.append+remove", "std::list push_back+erase", zkbench::Compare([] {
        fLIST list;
        for (vINT& object : Objects())
            list.Append(object);
        for (vINT& object : Objects())
            list.Remove(object);
    }, [] {
        std::list<const vOBJECT*> list;
        for (vINT& object : Objects())
            list.push_back(&object);
        for (vINT& object : Objects())
            list.erase(std::find(list.begin(), list.end(), &object));
    }, 2 * items));
}

void Walk()
{
    FilledLists lists;
    fLIST& list = lists.ours;
    std::list<const vOBJECT*>& reference = lists.reference;
    zkbench::Record("lists.walk", "std::list iteration", zkbench::Compare([&list] {
        long sum = 0;
        for (fLINK* link = list.Next(nullptr); link; link = list.Next(link))
            sum += static_cast<vINT*>(link->Object())->operator()();
        zkbench::Keep(sum);
    }, [&reference] {
        long sum = 0;
        for (const vOBJECT* object : reference)
            sum += static_cast<const vINT*>(object)->operator()();
        zkbench::Keep(sum);
    }, items));
}

}  // namespace

void BenchLists()
{
    Append();
    Search();
    RemoveInOrder();
    Walk();
}
