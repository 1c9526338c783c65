// Intrusive lists, trees and forests. A list owns its items and deletes them; a member sits in at
// most one list. Nothing here allocates or locks.
//
// A list keeps two chains through its items. Both hold the same items in the order of addition;
// only adding and unlinking write them. All code walks the second chain (First, Next); searches for
// the most recent item and clearing use the first. A callback must leave the item that it is given
// in its list, for the walk goes on from it.
#pragma once

#include <cstdint>

#include "core/object.h"

struct cKoList;

struct cKoListItem : cKoObject {
    // Bits of flags that the list honours; the lower bits belong to the derived class.
    static constexpr std::uint32_t kNotOwned = 0x80000000;  // removing unlinks but does not delete
    static constexpr std::uint32_t kPinned = 0x40000000;    // Unlink does nothing

    explicit cKoListItem(std::uint32_t itemFlags = 0) noexcept : flags(itemFlags) {}
    ~cKoListItem() override;

    void Unlink() noexcept;
    cKoListItem* Next() const noexcept { return next; }
    cKoListItem* Prev() const noexcept { return prev; }

    std::uint32_t flags;
    cKoListItem* nextAdded = nullptr;
    cKoListItem* prevAdded = nullptr;
    cKoListItem* next = nullptr;
    cKoListItem* prev = nullptr;
    std::int32_t serial = -1;  // in its list, from 1; -1 in no list
    cKoList* owner = nullptr;
};

struct cKoList : cKoObject {
    static constexpr std::uint32_t kNotThisList = 12;

    using Predicate = bool (*)(cKoListItem* item, void* arg);
    using Visitor = std::uint32_t (*)(cKoListItem* item, void* arg, std::uint32_t flags);

    cKoList() noexcept = default;
    ~cKoList() override;

    // Moves the item here from any list that holds it. An item pinned in another list stays there:
    // 12.
    std::uint32_t AddItem(cKoListItem* item) noexcept;
    // Unlinks the item and deletes it unless it is not owned; so a pinned item goes too, unless it
    // is not owned either. 12 for an item of another list or of none.
    std::uint32_t RemoveItem(cKoListItem* item) noexcept;
    // Removes every item, the last added first; reset not 0 also starts the serials anew.
    std::uint32_t Clear(std::uint32_t reset) noexcept;
    cKoListItem* First() const noexcept { return first; }
    cKoListItem* Last() const noexcept { return last; }
    std::uint32_t Count() const noexcept { return count; }
    // The most recently added item for which predicate is true, or null.
    cKoListItem* FindAddedItem(Predicate predicate, void* arg) const;
    // Backwards from the last item; forwards when bit 0 of flags or of listFlags is set (the flags
    // word of a derived list that has one). Stops at the first result that is not 0 and returns it.
    std::uint32_t ForEachItem(Visitor callback, void* arg, std::uint32_t flags,
                              std::uint32_t listFlags = 0) const;

    std::uint32_t count = 0;
    std::uint32_t lastSerial = 0;  // items ever added since the last reset
    std::uint32_t removed = 0;     // items ever taken out since the last reset
    cKoListItem* firstAdded = nullptr;
    cKoListItem* lastAdded = nullptr;
    cKoListItem* first = nullptr;
    cKoListItem* last = nullptr;

  private:
    friend struct cKoListItem;
    void takeOut(cKoListItem* item) noexcept;
};

struct cKoTreeNode : cKoListItem {
    using Predicate = std::uint32_t (*)(cKoTreeNode* node, void* arg);

    explicit cKoTreeNode(cKoTreeNode* parent = nullptr) noexcept;
    // Deletes the subtree, the last added child of each node first.
    ~cKoTreeNode() override;
    virtual std::uint32_t OnMessage(std::uint32_t message, std::int64_t arg);

    cKoTreeNode* FirstChild() const noexcept;
    // The preorder successor inside the subtree of root; with root null the walk runs on over the
    // whole forest.
    cKoTreeNode* NextNode(cKoTreeNode* root) const noexcept;
    // This node or the first of its subtree, in preorder, for which predicate is not 0; or null.
    cKoTreeNode* FindNode(Predicate predicate, void* arg);

    cKoTreeNode* parent = nullptr;
    cKoList children;  // of cKoTreeNode
};

// A list of root nodes.
struct cKoForest : cKoList {
    using NodeVisitor = std::uint32_t (*)(cKoTreeNode* node, void* arg);

    // Visits root and its subtree, or every tree when root is null, in preorder; stops at the first
    // result that is not 0 and returns it.
    std::uint32_t ForEachNode(NodeVisitor callback, void* arg, cKoTreeNode* root);
    std::uint32_t Broadcast(std::uint32_t message, std::int64_t arg, cKoTreeNode* root);
};
