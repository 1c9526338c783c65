// The life of a node, its place in the tree and its flags.
#include "nuv64/data/data_object.h"

#include "data/data_object.h"

#include <algorithm>
#include <utility>

#include "core/guard.h"
#include "data/data_tree.h"
#include "nuv64/core/special_reals.h"

namespace {

constexpr std::uint32_t kIllegalArgument = 26;

cKoData* asData(cKoListItem* item) noexcept {
    return static_cast<cKoData*>(item);
}

// Puts an owned node on the heap; null and nodes that their list doesn't own stay where they are.
void putOnHeap(cKoData* node, cKoList& heap) noexcept {
    if (!node) return;
    node->flags &= ~(cKoListItem::kPinned | cKoListItem::kNotOwned);
    heap.AddItem(node);
}

}  // namespace

cKoData::cKoData(std::uint32_t initialFlags) noexcept : Flags(initialFlags) {
    std::fill_n(Results, kResultCount, ___NAN);
}

// Nothing is deleted through nested calls: a tree or an undo chain may be deeper than the stack.
// Every node met gives its children, its result node and its older state to one flat list first.
cKoData::~cKoData() {
    cKoList heap;
    releaseChildren(heap);
    putOnHeap(std::exchange(Previous, nullptr), heap);
    putOnHeap(std::exchange(Evaluated, nullptr), heap);
    while (cKoListItem* item = heap.Last()) {
        cKoData* node = asData(item);
        node->Unlink();
        node->releaseChildren(heap);
        putOnHeap(std::exchange(node->Previous, nullptr), heap);
        putOnHeap(std::exchange(node->Evaluated, nullptr), heap);
        delete node;
    }
}

// Moves the children that the node owns to the heap and lets go of the others.
void cKoData::releaseChildren(cKoList& heap) noexcept {
    while (cKoData* child = FirstChild()) {
        if ((child->flags & kNotOwned) != 0) {
            child->flags &= ~kPinned;
            child->Unlink();
        } else {
            putOnHeap(child, heap);
        }
    }
    Clear(1);
}

void cKoData::Reset() noexcept {
    {
        cKoData children;  // its destructor flattens what it is given
        releaseChildren(children);
    }
    freeMatrix();
    clearFields();
}

void cKoData::clearFields() noexcept {
    Flags = 0;
    ZoneNumber = 0;
    DataSourceName = nullptr;
    DataSourceId = 0;
    ExperimentName.reset();
    ExperimentType = kUnset;
    HostMark = kUnset;
    FileTitle.reset();
    FileFolder.reset();
    FilePath.reset();
    ExportPath.reset();
    Parameters.Clear();
    TaskScript.reset();
    AxisGrid = 0;
    AxisFirst = 1.0;
    AxisLast = 1.0;
    AxisScale = 1.0;
    AxisOffset = 0.0;
    AxisUnit.reset();
    ValueScale = 1.0;
    ValueUnit.reset();
    std::fill_n(Results, kResultCount, ___NAN);
    BlockAxis.reset();
    BlockAxisCount = 0;
}

std::uint64_t cKoData::ChildCount() const noexcept {
    return Count();
}

cKoData* cKoData::ChildAt(std::uint64_t index) const noexcept {
    if (index >= Count()) return nullptr;
    cKoData* child = FirstChild();
    while (child && index-- != 0) child = child->Next();
    return child;
}

cKoData* cKoData::FirstChild() const noexcept {
    return asData(First());
}

cKoData* cKoData::LastChild() const noexcept {
    return asData(Last());
}

cKoData* cKoData::Next() const noexcept {
    return asData(cKoListItem::Next());
}

// A node may also stand in a list that is no node.
cKoData* cKoData::Parent() const noexcept {
    return dynamic_cast<cKoData*>(owner);
}

std::uint64_t cKoData::Depth() const noexcept {
    std::uint64_t depth = 0;
    for (const cKoData* node = Parent(); node; node = node->Parent()) ++depth;
    return depth;
}

std::uint64_t cKoData::Height() const noexcept {
    std::uint64_t height = 0;
    nuv64::forEachNode(
        this, [&](const cKoData&, std::uint64_t depth) { height = std::max(height, depth); });
    return height;
}

std::uint64_t cKoData::SiblingCount() const noexcept {
    const cKoData* parent = Parent();
    return parent ? parent->ChildCount() : 0;
}

// A node can't become a child of itself or of its own descendant: 26.
std::uint32_t cKoData::AppendChild(cKoData* child) noexcept {
    if (!child) return nuv64::kSuccess;
    if (child == this) return kIllegalArgument;
    for (const cKoData* node = Parent(); node && child->Count() != 0; node = node->Parent()) {
        if (node == child) return kIllegalArgument;
    }
    return AddItem(child);
}

cKoData* cKoData::ParameterOwner() noexcept {
    cKoData* node = this;
    while (node && node->Parameters.LineCount == 0) node = node->Parent();
    return node;
}

cKoData* cKoData::StrongestChild(std::uint64_t slot) {
    cKoData* strongest = FirstChild();
    double greatest = -___MaxReal;
    for (cKoData* child = FirstChild(); child; child = child->Next()) {
        const double value = child->ChannelStatistic(1, slot);
        if (value > greatest) {
            greatest = value;
            strongest = child;
        }
    }
    return strongest;
}

void cKoData::SetFlags(std::uint32_t mask, bool recursive) noexcept {
    Flags |= mask;
    if (!recursive) return;
    nuv64::forEachNode(this, [mask](cKoData& node, std::uint64_t) { node.Flags |= mask; });
}

void cKoData::ClearFlags(std::uint32_t mask, bool recursive) noexcept {
    Flags &= ~mask;
    if (!recursive) return;
    nuv64::forEachNode(this, [mask](cKoData& node, std::uint64_t) { node.Flags &= ~mask; });
}

std::uint32_t cKoData::TestFlags(std::uint32_t mask) const noexcept {
    return Flags & mask;
}

std::uint64_t cKoData::CountFlagged(std::uint32_t mask, bool* allFlagged) const noexcept {
    std::uint64_t flagged = 0;
    for (const cKoData* child = FirstChild(); child; child = child->Next()) {
        if (child->TestFlags(mask) != 0) {
            ++flagged;
        } else if (allFlagged) {
            *allFlagged = false;
        }
    }
    return flagged;
}
