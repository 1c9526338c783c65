// A walk over a tree of nodes that needs neither recursion nor memory.
#pragma once

#include <cstdint>

#include "data/data_object.h"

namespace nuv64 {

// Calls visit(node, depth) for root (depth 0) and all its descendants, parents first. Node is
// cKoData or const cKoData; visit must not change the tree.
template <class Node, class Visit>
void forEachNode(Node* root, Visit&& visit) {
    Node* node = root;
    std::uint64_t depth = 0;
    while (node) {
        visit(*node, depth);
        if (Node* child = node->FirstChild()) {
            node = child;
            ++depth;
            continue;
        }
        while (node != root && !node->Next()) {
            node = static_cast<Node*>(node->owner);
            --depth;
        }
        node = node == root ? nullptr : node->Next();
    }
}

}  // namespace nuv64
