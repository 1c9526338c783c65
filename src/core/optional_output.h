// Results that a caller may not want: their pointers may be null.
#pragma once

#include <type_traits>

namespace nuv64 {

template <class T>
void store(T* target, std::type_identity_t<T> value) noexcept {
    if (target) *target = value;
}

}  // namespace nuv64
