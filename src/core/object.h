// The one polymorphic base of all objects that a host may hold or release.
#pragma once

// Empty but for its virtual destructor, and first in the layout of every object, so that a release
// that knows only an address can delete any of them.
struct cKoObject {
    cKoObject() = default;
    cKoObject(const cKoObject&) = delete;
    cKoObject& operator=(const cKoObject&) = delete;
    virtual ~cKoObject() = default;
};

namespace nuv64 {

// Deletes the object at *object through its destructor and writes null. Null at either level is a
// no-op. *object must be the address of a cKoObject; a cKoData is released through its list-item
// side.
void ObjectKill(void** object) noexcept;

}  // namespace nuv64
