// Intrusive lists, trees and forests. A list owns its items and deletes them; a member sits in at
// most one list. Nothing here allocates or locks.
#pragma once

#include <cstdint>

#include "core/object.h"

struct cKoList;

struct cKoListItem : cKoObject {
    // Bits of flags that the list honours; the lower bits belong to the derived class.
    static constexpr std::uint32_t kNotOwned = 0x80000000;  // removing unlinks but does not delete
    static constexpr std::uint32_t kPinned = 0x40000000;    // Unlink does nothing

    explicit cKoListItem(std::uint32_t flags = 0) noexcept : flags(flags) {}
    ~cKoListItem() override;

    void Unlink() noexcept;
    cKoListItem* Next() const noexcept { return next; }
    cKoListItem* Prev() const noexcept { return prev; }

    std::uint32_t flags;
    cKoListItem* nextAdded = nullptr;
    cKoListItem* prevAdded = nullptr;
    cKoListItem* next = nullptr;
    cKoListItem* prev = nullptr;
    std::int32_t serial = -1;
    cKoList* owner = nullptr;
};

struct cKoList : cKoObject {
    using Predicate = bool (*)(cKoListItem* item, void* arg);
    using Visitor = std::uint32_t (*)(cKoListItem* item, void* arg, std::uint32_t flags);

    cKoList() noexcept = default;
    ~cKoList() override;

    std::uint32_t AddItem(cKoListItem* item) noexcept;
    std::uint32_t RemoveItem(cKoListItem* item) noexcept;
    std::uint32_t Clear(std::uint32_t reset) noexcept;
    cKoListItem* First() const noexcept { return first; }
    cKoListItem* Last() const noexcept { return last; }
    std::uint32_t Count() const noexcept { return count; }
    cKoListItem* FindAddedItem(Predicate predicate, void* arg) const;
    // listFlags is the flags word of a derived list that has one; 0 otherwise.
    std::uint32_t ForEachItem(Visitor callback, void* arg, std::uint32_t flags,
                              std::uint32_t listFlags = 0) const;

    std::uint32_t count = 0;
    std::uint32_t lastSerial = 0;
    std::uint32_t removed = 0;
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
    ~cKoTreeNode() override;
    virtual std::uint32_t OnMessage(std::uint32_t message, std::int64_t arg);

    cKoTreeNode* FirstChild() const noexcept;
    cKoTreeNode* NextNode(cKoTreeNode* root) const noexcept;
    cKoTreeNode* FindNode(Predicate predicate, void* arg);

    cKoTreeNode* parent = nullptr;
    cKoList children;
};

struct cKoForest : cKoList {
    using NodeVisitor = std::uint32_t (*)(cKoTreeNode* node, void* arg);

    std::uint32_t ForEachNode(NodeVisitor callback, void* arg, cKoTreeNode* root);
    std::uint32_t Broadcast(std::uint32_t message, std::int64_t arg, cKoTreeNode* root);
};
