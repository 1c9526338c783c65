#include "core/list.h"

// Items.

// A pin holds an item against Unlink, not against its own end: an item that dies always leaves the
// chains, so that they never hold a dead address.
cKoListItem::~cKoListItem() {
    if (owner) owner->takeOut(this);
}

void cKoListItem::Unlink() noexcept {
    if (owner && !(flags & kPinned)) owner->takeOut(this);
}

// Lists.

cKoList::~cKoList() {
    Clear(1);
    // What survives is pinned and not owned; it goes on living, in no list.
    while (lastAdded) takeOut(lastAdded);
}

std::uint32_t cKoList::AddItem(cKoListItem* item) noexcept {
    if (!item) return 0;
    item->Unlink();
    if (item->owner) return item->owner == this ? 0 : kNotThisList;
    item->prevAdded = lastAdded;
    item->prev = last;
    (lastAdded ? lastAdded->nextAdded : firstAdded) = item;
    (last ? last->next : first) = item;
    lastAdded = last = item;
    item->owner = this;
    item->serial = static_cast<std::int32_t>(++lastSerial);
    ++count;
    return 0;
}

std::uint32_t cKoList::RemoveItem(cKoListItem* item) noexcept {
    if (!item) return 0;
    if (item->owner != this) return kNotThisList;
    item->Unlink();
    if (!(item->flags & cKoListItem::kNotOwned)) delete item;
    return 0;
}

std::uint32_t cKoList::Clear(std::uint32_t reset) noexcept {
    std::uint32_t status = 0;
    for (cKoListItem* item = lastAdded; item;) {
        cKoListItem* const previous = item->prevAdded;
        status |= RemoveItem(item);
        item = previous;
    }
    if (reset) lastSerial = removed = 0;
    return status;
}

cKoListItem* cKoList::FindAddedItem(Predicate predicate, void* arg) const {
    if (!predicate) return nullptr;
    cKoListItem* item = lastAdded;
    while (item && !predicate(item, arg)) item = item->prevAdded;
    return item;
}

std::uint32_t cKoList::ForEachItem(Visitor callback, void* arg, std::uint32_t flags,
                                   std::uint32_t listFlags) const {
    if (!callback) return 0;
    const bool forward = ((flags | listFlags) & 1) != 0;
    for (cKoListItem* item = forward ? first : last; item;
         item = forward ? item->next : item->prev) {
        if (const std::uint32_t result = callback(item, arg, flags)) return result;
    }
    return 0;
}

void cKoList::takeOut(cKoListItem* item) noexcept {
    (item->prevAdded ? item->prevAdded->nextAdded : firstAdded) = item->nextAdded;
    (item->nextAdded ? item->nextAdded->prevAdded : lastAdded) = item->prevAdded;
    (item->prev ? item->prev->next : first) = item->next;
    (item->next ? item->next->prev : last) = item->prev;
    item->nextAdded = item->prevAdded = item->next = item->prev = nullptr;
    item->serial = -1;
    item->owner = nullptr;
    ++removed;
    --count;
}

// Trees.

cKoTreeNode::cKoTreeNode(cKoTreeNode* newParent) noexcept : parent(newParent) {
    if (parent) parent->children.AddItem(this);
}

cKoTreeNode::~cKoTreeNode() {
    for (cKoListItem* item = children.First(); item; item = item->Next()) {
        // Such a child outlives this node and must not climb to it any more.
        if (item->flags & kNotOwned) static_cast<cKoTreeNode*>(item)->parent = nullptr;
    }
    children.Clear(1);
    Unlink();
}

std::uint32_t cKoTreeNode::OnMessage(std::uint32_t, std::int64_t) {
    return 0;
}

cKoTreeNode* cKoTreeNode::FirstChild() const noexcept {
    return static_cast<cKoTreeNode*>(children.First());
}

cKoTreeNode* cKoTreeNode::NextNode(cKoTreeNode* root) const noexcept {
    if (cKoTreeNode* const child = FirstChild()) return child;
    for (const cKoTreeNode* node = this; node && node != root; node = node->parent) {
        if (node->Next()) return static_cast<cKoTreeNode*>(node->Next());
    }
    return nullptr;
}

cKoTreeNode* cKoTreeNode::FindNode(Predicate predicate, void* arg) {
    if (!predicate) return nullptr;
    cKoTreeNode* node = this;
    while (node && predicate(node, arg) == 0) node = node->NextNode(this);
    return node;
}

// Forests.

std::uint32_t cKoForest::ForEachNode(NodeVisitor callback, void* arg, cKoTreeNode* root) {
    if (!callback) return 0;
    cKoTreeNode* node = root ? root : static_cast<cKoTreeNode*>(First());
    for (; node; node = node->NextNode(root)) {
        if (const std::uint32_t result = callback(node, arg)) return result;
    }
    return 0;
}

std::uint32_t cKoForest::Broadcast(std::uint32_t message, std::int64_t arg, cKoTreeNode* root) {
    struct Message {
        std::uint32_t message;
        std::int64_t arg;
    } sent{message, arg};
    return ForEachNode(
        [](cKoTreeNode* node, void* context) {
            const Message& received = *static_cast<Message*>(context);
            return node->OnMessage(received.message, received.arg);
        },
        &sent, root);
}
