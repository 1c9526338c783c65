#include <array>

#include "data/data_object.h"

namespace nuv64 {

const char* DataSourceNameFromId(std::uint64_t id) noexcept {
    static constexpr std::array<const char*, 17> names = {
        nullptr,  "TEXT",  "JSON",      "XML",        "JCAMP", "STELAR", "RS",   "OXFORD", "BRUKER",
        "VARIAN", "EXCEL", "CLIPBOARD", "SIMULATION", nullptr, "TEXT",   "TEXT", "TEXT"};
    return id < names.size() ? names[id] : nullptr;
}

}  // namespace nuv64
