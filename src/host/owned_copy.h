// Copies of the texts that nodes own.
#pragma once

#include <string>

#include "core/owned.h"

namespace nuv64 {

// Null for null; throws std::bad_alloc.
template <class Ch>
Owned<Ch> copyOf(const Owned<Ch>& text) {
    if (!text) return {};
    return copyText(text.get(), std::char_traits<Ch>::length(text.get()));
}

}  // namespace nuv64
