#include "core/list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

// Tells on its end.
struct Item : cKoListItem {
    explicit Item(int id = 0, std::vector<int>* ends = nullptr, std::uint32_t bits = 0)
        : cKoListItem(bits), name(id), log(ends) {}
    ~Item() override {
        if (log) log->push_back(name);
    }
    int name;
    std::vector<int>* log;
};

std::vector<int> names(const cKoList& list) {
    std::vector<int> result;
    for (cKoListItem* item = list.First(); item; item = item->Next()) {
        result.push_back(static_cast<Item*>(item)->name);
    }
    return result;
}

// Both chains, both directions, against the count.
void expectSound(const cKoList& list) {
    std::vector<const cKoListItem*> chain;
    for (const cKoListItem* item = list.first; item; item = item->next) chain.push_back(item);
    std::vector<const cKoListItem*> back;
    for (const cKoListItem* item = list.last; item; item = item->prev) back.push_back(item);
    std::vector<const cKoListItem*> added;
    for (const cKoListItem* item = list.firstAdded; item; item = item->nextAdded) {
        added.push_back(item);
    }
    std::vector<const cKoListItem*> addedBack;
    for (const cKoListItem* item = list.lastAdded; item; item = item->prevAdded) {
        addedBack.push_back(item);
    }
    std::reverse(back.begin(), back.end());
    std::reverse(addedBack.begin(), addedBack.end());
    EXPECT_EQ(chain.size(), list.Count());
    EXPECT_EQ(chain, back);
    EXPECT_EQ(chain, added);
    EXPECT_EQ(chain, addedBack);
    for (const cKoListItem* item : chain) EXPECT_EQ(item->owner, &list);
}

TEST(ListItem, StandsAloneWhenMade) {
    const cKoListItem item(0x1234);
    EXPECT_EQ(item.flags, 0x1234u);
    EXPECT_EQ(item.serial, -1);
    EXPECT_EQ(item.owner, nullptr);
    EXPECT_EQ(item.Next(), nullptr);
    EXPECT_EQ(item.Prev(), nullptr);
    EXPECT_EQ(item.nextAdded, nullptr);
    EXPECT_EQ(item.prevAdded, nullptr);
}

TEST(List, IsEmptyWhenMade) {
    cKoList list;
    EXPECT_EQ(list.Count(), 0u);
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.Last(), nullptr);
    EXPECT_EQ(list.AddItem(nullptr), 0u);
    EXPECT_EQ(list.RemoveItem(nullptr), 0u);
    EXPECT_EQ(list.Clear(1), 0u);
    expectSound(list);
}

TEST(List, NumbersItsItemsAndNeverReusesASerial) {
    cKoList list;
    Item* items[4];
    for (int i = 0; i < 3; ++i) EXPECT_EQ(list.AddItem(items[i] = new Item(i + 1)), 0u);
    EXPECT_EQ(items[0]->serial, 1);
    EXPECT_EQ(items[2]->serial, 3);
    EXPECT_EQ(list.RemoveItem(items[1]), 0u);
    list.AddItem(items[3] = new Item(4));
    EXPECT_EQ(items[3]->serial, 4);
    EXPECT_EQ(list.Count(), 3u);
    EXPECT_EQ(list.removed, 1u);
    EXPECT_EQ(names(list), (std::vector<int>{1, 3, 4}));
    expectSound(list);
}

TEST(List, AddingMovesAnItem) {
    cKoList a;
    cKoList b;
    auto* item = new Item(1);
    a.AddItem(item);
    a.AddItem(new Item(2));
    EXPECT_EQ(b.AddItem(item), 0u);
    EXPECT_EQ(a.Count(), 1u);
    EXPECT_EQ(a.removed, 1u);
    EXPECT_EQ(b.Count(), 1u);
    EXPECT_EQ(item->owner, &b);
    expectSound(a);
    expectSound(b);
    // Within one list it goes to the end with a new serial.
    b.AddItem(new Item(3));
    b.AddItem(item);
    EXPECT_EQ(item->serial, 3);
    EXPECT_EQ(names(b), (std::vector<int>{3, 1}));
    expectSound(b);
}

TEST(List, RemoveRefusesAnItemOfAnotherList) {
    cKoList a;
    cKoList b;
    auto* item = new Item(1);
    a.AddItem(item);
    EXPECT_EQ(b.RemoveItem(item), 12u);
    Item alone(2);
    EXPECT_EQ(b.RemoveItem(&alone), 12u);
    EXPECT_EQ(a.Count(), 1u);
    EXPECT_EQ(b.removed, 0u);
}

TEST(List, APinHoldsAgainstUnlinkButNotAgainstTheEnd) {
    std::vector<int> ends;
    cKoList list;
    cKoList other;
    auto* item = new Item(1, &ends, cKoListItem::kPinned);
    EXPECT_EQ(list.AddItem(item), 0u);
    list.AddItem(new Item(2, &ends));
    item->Unlink();
    EXPECT_EQ(item->owner, &list);
    EXPECT_EQ(item->serial, 1);
    EXPECT_EQ(list.removed, 0u);
    EXPECT_EQ(other.AddItem(item), 12u);
    EXPECT_EQ(list.AddItem(item), 0u);
    EXPECT_EQ(names(list), (std::vector<int>{1, 2}));
    expectSound(list);
    expectSound(other);
    EXPECT_EQ(list.RemoveItem(item), 0u);
    EXPECT_EQ(ends, std::vector<int>{1});
    EXPECT_EQ(names(list), std::vector<int>{2});
    EXPECT_EQ(list.removed, 1u);
    expectSound(list);
    // The end of an item outside of any list operation mends the chains too.
    auto* second = new Item(3, &ends, cKoListItem::kPinned);
    list.AddItem(second);
    delete second;
    EXPECT_EQ(names(list), std::vector<int>{2});
    expectSound(list);
}

TEST(List, DoesNotDeleteWhatItDoesNotOwn) {
    std::vector<int> ends;
    Item item(1, &ends, cKoListItem::kNotOwned | 5);
    Item pinned(2, &ends, cKoListItem::kNotOwned | cKoListItem::kPinned);
    {
        cKoList list;
        list.AddItem(&item);
        list.AddItem(&pinned);
        EXPECT_EQ(list.RemoveItem(&item), 0u);
        EXPECT_EQ(item.owner, nullptr);
        EXPECT_EQ(item.serial, -1);
        EXPECT_EQ(item.flags, cKoListItem::kNotOwned | 5u);
        EXPECT_EQ(list.RemoveItem(&pinned), 0u);
        EXPECT_EQ(pinned.owner, &list);  // both bits: it stays
        list.AddItem(&item);
        EXPECT_EQ(list.Clear(0), 0u);
        EXPECT_EQ(list.Count(), 1u);
    }
    EXPECT_TRUE(ends.empty());
    EXPECT_EQ(pinned.owner, nullptr);  // the list is gone
    EXPECT_EQ(item.owner, nullptr);
}

TEST(List, ClearsFromTheEndAndResetsOnRequest) {
    std::vector<int> ends;
    cKoList list;
    for (int i = 1; i <= 3; ++i) list.AddItem(new Item(i, &ends));
    list.Clear(0);
    EXPECT_EQ(ends, (std::vector<int>{3, 2, 1}));
    EXPECT_EQ(list.lastSerial, 3u);
    EXPECT_EQ(list.removed, 3u);
    list.AddItem(new Item(4, &ends));
    EXPECT_EQ(list.Last()->serial, 4);
    list.Clear(1);
    EXPECT_EQ(list.lastSerial, 0u);
    EXPECT_EQ(list.removed, 0u);
    list.AddItem(new Item(5, &ends));
    EXPECT_EQ(list.First()->serial, 1);
}

TEST(List, FindsTheMostRecentMatch) {
    cKoList list;
    for (int i = 1; i <= 4; ++i) list.AddItem(new Item(i % 2));
    int wanted = 1;
    const auto byName = [](cKoListItem* item, void* arg) {
        return static_cast<Item*>(item)->name == *static_cast<int*>(arg);
    };
    ASSERT_NE(list.FindAddedItem(byName, &wanted), nullptr);
    EXPECT_EQ(list.FindAddedItem(byName, &wanted)->serial, 3);
    wanted = 7;
    EXPECT_EQ(list.FindAddedItem(byName, &wanted), nullptr);
    EXPECT_EQ(list.FindAddedItem(nullptr, nullptr), nullptr);
}

TEST(List, WalksInTheDirectionOfBitZero) {
    struct Seen {
        std::vector<int> names;
        int stopAt = 0;
        std::uint32_t flags = 0;
    };
    cKoList list;
    for (int i = 1; i <= 3; ++i) list.AddItem(new Item(i));
    const auto visit = [](cKoListItem* item, void* arg, std::uint32_t flags) -> std::uint32_t {
        auto& seen = *static_cast<Seen*>(arg);
        seen.names.push_back(static_cast<Item*>(item)->name);
        seen.flags = flags;
        return seen.names.back() == seen.stopAt ? 77 : 0;
    };
    Seen backward;
    EXPECT_EQ(list.ForEachItem(visit, &backward, 6), 0u);
    EXPECT_EQ(backward.names, (std::vector<int>{3, 2, 1}));
    EXPECT_EQ(backward.flags, 6u);
    Seen forward;
    EXPECT_EQ(list.ForEachItem(visit, &forward, 1), 0u);
    EXPECT_EQ(forward.names, (std::vector<int>{1, 2, 3}));
    Seen byList;
    byList.stopAt = 2;
    EXPECT_EQ(list.ForEachItem(visit, &byList, 0, 1), 77u);
    EXPECT_EQ(byList.names, (std::vector<int>{1, 2}));
    EXPECT_EQ(byList.flags, 0u);
    EXPECT_EQ(cKoList().ForEachItem(visit, &byList, 0), 0u);
    EXPECT_EQ(list.ForEachItem(nullptr, nullptr, 0), 0u);
}

TEST(List, AgreesWithAPlainModelOnRandomWork) {
    std::mt19937 random(7);
    std::vector<std::unique_ptr<Item>> items;
    for (int i = 0; i < 12; ++i) {
        items.push_back(std::make_unique<Item>(i, nullptr, cKoListItem::kNotOwned));
    }
    cKoList lists[2];
    std::vector<int> model[2];
    for (int round = 0; round < 3000; ++round) {
        const int which = static_cast<int>(random() % items.size());
        for (auto& names : model) std::erase(names, which);
        if (random() % 3 == 0) {
            items[which]->Unlink();
        } else {
            const unsigned target = random() % 2;
            lists[target].AddItem(items[which].get());
            model[target].push_back(which);
        }
        for (int i = 0; i < 2; ++i) ASSERT_EQ(names(lists[i]), model[i]);
    }
    for (const cKoList& list : lists) {
        expectSound(list);
        EXPECT_EQ(list.lastSerial - list.removed, list.Count());
    }
}

// Trees.

struct Node : cKoTreeNode {
    explicit Node(cKoTreeNode* above, char id, std::string* ends = nullptr)
        : cKoTreeNode(above), name(id), log(ends) {}
    ~Node() override {
        if (log) *log += name;
    }
    std::uint32_t OnMessage(std::uint32_t message, std::int64_t arg) override {
        if (message == 5) heard += static_cast<std::uint64_t>(arg);
        return name == 'd' && message == 9 ? 42 : 0;
    }
    char name;
    std::string* log;
    std::uint64_t heard = 0;
};

// a(b(d, e), c) and f(g)
struct Woods {
    Woods() {
        a = new Node(nullptr, 'a', &ends);
        b = new Node(a, 'b', &ends);
        c = new Node(a, 'c', &ends);
        d = new Node(b, 'd', &ends);
        e = new Node(b, 'e', &ends);
        f = new Node(nullptr, 'f', &ends);
        g = new Node(f, 'g', &ends);
        forest.AddItem(a);
        forest.AddItem(f);
    }
    std::string ends;
    cKoForest forest;
    Node *a, *b, *c, *d, *e, *f, *g;
};

std::string walk(cKoTreeNode* start, cKoTreeNode* root) {
    std::string result;
    for (cKoTreeNode* node = start; node; node = node->NextNode(root)) {
        result += static_cast<Node*>(node)->name;
    }
    return result;
}

std::uint32_t nameIs(cKoTreeNode* node, void* arg) {
    return static_cast<Node*>(node)->name == *static_cast<char*>(arg);
}

TEST(Tree, WalksInPreorderInsideItsRoot) {
    Woods woods;
    EXPECT_EQ(walk(woods.a, woods.a), "abdec");
    EXPECT_EQ(walk(woods.b, woods.b), "bde");
    EXPECT_EQ(walk(woods.a, nullptr), "abdecfg");
    EXPECT_EQ(walk(woods.c, woods.c), "c");
    // The last node of a subtree ends the walk, though the root has a next sibling.
    EXPECT_EQ(woods.e->NextNode(woods.b), nullptr);
    EXPECT_EQ(woods.e->NextNode(nullptr), woods.c);
    EXPECT_EQ(woods.a->FirstChild(), woods.b);
    EXPECT_EQ(woods.d->FirstChild(), nullptr);
    EXPECT_EQ(woods.e->parent, woods.b);
}

TEST(Tree, FindsTheFirstMatchInPreorder) {
    Woods woods;
    char wanted = 'e';
    EXPECT_EQ(woods.a->FindNode(nameIs, &wanted), woods.e);
    EXPECT_EQ(woods.e->FindNode(nameIs, &wanted), woods.e);
    EXPECT_EQ(woods.c->FindNode(nameIs, &wanted), nullptr);
    wanted = 'c';
    EXPECT_EQ(woods.b->FindNode(nameIs, &wanted), nullptr);
    EXPECT_EQ(woods.a->FindNode(nullptr, nullptr), nullptr);
}

TEST(Tree, DeletesItsSubtreeLastChildFirst) {
    Woods woods;
    // A node's own destructor speaks before its children go.
    EXPECT_EQ(woods.forest.RemoveItem(woods.a), 0u);
    EXPECT_EQ(woods.ends, "acbed");
    EXPECT_EQ(woods.forest.Count(), 1u);
    woods.ends.clear();
    delete woods.g;
    EXPECT_EQ(woods.f->children.Count(), 0u);
}

TEST(Tree, LeavesAChildAloneThatItDoesNotOwn) {
    std::string ends;
    Node child(nullptr, 'x', &ends);
    {
        Node parent(nullptr, 'p', &ends);
        child.flags = cKoListItem::kNotOwned;
        child.parent = &parent;
        parent.children.AddItem(&child);
    }
    EXPECT_EQ(ends, "p");
    EXPECT_EQ(child.parent, nullptr);
    EXPECT_EQ(child.owner, nullptr);
}

TEST(Tree, TheBaseIgnoresMessages) {
    cKoTreeNode node;
    EXPECT_EQ(node.OnMessage(1, 2), 0u);
}

TEST(Forest, VisitsAllTreesOrOneSubtree) {
    Woods woods;
    struct Seen {
        std::string names;
        char stop;
    };
    const auto visit = [](cKoTreeNode* node, void* arg) -> std::uint32_t {
        auto& seen = *static_cast<Seen*>(arg);
        seen.names += static_cast<Node*>(node)->name;
        return seen.names.back() == seen.stop ? 3 : 0;
    };
    Seen all{"", 0};
    EXPECT_EQ(woods.forest.ForEachNode(visit, &all, nullptr), 0u);
    EXPECT_EQ(all.names, "abdecfg");
    Seen some{"", 0};
    EXPECT_EQ(woods.forest.ForEachNode(visit, &some, woods.b), 0u);
    EXPECT_EQ(some.names, "bde");
    Seen stopped{"", 'e'};
    EXPECT_EQ(woods.forest.ForEachNode(visit, &stopped, nullptr), 3u);
    EXPECT_EQ(stopped.names, "abde");
    EXPECT_EQ(cKoForest().ForEachNode(visit, &all, nullptr), 0u);
    EXPECT_EQ(woods.forest.ForEachNode(nullptr, nullptr, nullptr), 0u);
}

TEST(Forest, BroadcastsUntilANodeAnswers) {
    Woods woods;
    EXPECT_EQ(woods.forest.Broadcast(5, 10, nullptr), 0u);
    EXPECT_EQ(woods.forest.Broadcast(5, 1, woods.b), 0u);
    EXPECT_EQ(woods.a->heard, 10u);
    EXPECT_EQ(woods.e->heard, 11u);
    EXPECT_EQ(woods.g->heard, 10u);
    EXPECT_EQ(woods.forest.Broadcast(9, 0, nullptr), 42u);
}

// The shared release.

TEST(ObjectKill, DeletesThroughTheDestructorAndWritesNull) {
    std::vector<int> ends;
    cKoList list;
    auto* item = new Item(8, &ends);
    list.AddItem(item);
    void* object = static_cast<cKoObject*>(item);
    nuv64::ObjectKill(&object);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(ends, std::vector<int>{8});
    EXPECT_EQ(list.Count(), 0u);
    nuv64::ObjectKill(&object);
    nuv64::ObjectKill(nullptr);
    EXPECT_EQ(ends.size(), 1u);
}

}  // namespace
