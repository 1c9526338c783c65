// Filling the record of a file from what the platform tells.
#pragma once

#include "nuv64/core/file_info.h"
#include "platform/file_records.h"

namespace nuv64 {

// Attributes, size and times; the other fields and the texts stand.
void storeFileRecord(const platform::FileRecord& record, FileInfo& info) noexcept;

}  // namespace nuv64
