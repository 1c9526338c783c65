#include "nuv64/core/named_id.h"

#include <cstddef>

#include "nuv64/core/text_search.h"

static_assert(offsetof(NamedId, id) == 0 && offsetof(NamedId, name) == 8 && sizeof(NamedId) == 16);
static_assert(offsetof(NamedIdA, id) == 0 && offsetof(NamedIdA, name) == 8 &&
              sizeof(NamedIdA) == 16);

namespace nuv64 {
namespace {

template <class Row, class Text, class StartsWith>
uint32_t idOf(const Row* table, const Text* text, StartsWith startsWith, uint32_t missing) {
    for (const Row* row = table; row && row->id != 0; ++row) {
        if (startsWith(text, row->name, 0)) return row->id;
    }
    return missing;
}

// Both widths run this one routine: a name is a pointer that is handed on, whatever it points to.
template <class Row>
auto nameOf(const Row* table, uint32_t id) -> decltype(table->name) {
    for (const Row* row = table; row && row->id != 0; ++row) {
        if (row->id == id) return row->name;
    }
    return nullptr;
}

}  // namespace
}  // namespace nuv64

uint32_t NamedId_GetId(const NamedId* table, const char16_t* text) noexcept {
    return nuv64::idOf(table, text, StringStartsWith, 0);
}

uint32_t NamedId_GetIdA(const NamedIdA* table, const char* text) noexcept {
    return nuv64::idOf(table, text, StringStartsWithA, 0xFFFFFFFF);
}

const char16_t* NamedId_GetName(const NamedId* table, uint32_t id) noexcept {
    return nuv64::nameOf(table, id);
}

const char* NamedId_GetNameA(const NamedIdA* table, uint32_t id) noexcept {
    return nuv64::nameOf(table, id);
}
