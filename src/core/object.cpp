#include "core/object.h"

namespace nuv64 {

void ObjectKill(void** object) noexcept {
    if (!object || !*object) return;
    delete static_cast<cKoObject*>(*object);
    *object = nullptr;
}

}  // namespace nuv64
