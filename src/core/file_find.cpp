#include "nuv64/core/file_find.h"

#include <algorithm>
#include <vector>

#include "core/file_calls.h"
#include "core/file_info.h"
#include "core/system_text.h"

using namespace nuv64;

namespace {

// The searches that run, for the process: a handle that isn't among them is never passed on.
std::vector<std::int64_t>& runningSearches() {
    static std::vector<std::int64_t> searches;
    return searches;
}

bool isRunning(std::int64_t search) noexcept {
    const auto& searches = runningSearches();
    if (std::find(searches.begin(), searches.end(), search) != searches.end()) return true;
    platform::setLastError(platform::kErrorInvalidHandle);
    return false;
}

template <class Ch>
void release(Ch** name, FileInfo* info) noexcept {
    if (name) {
        const Owned<Ch> old(*name);
        *name = nullptr;
    }
    EraseFileInfo(info);
}

template <class Ch>
void store(const platform::FileRecord& record, Ch** name, FileInfo* info) {
    if (name) *name = ownedText<Ch>(record.name).release();
    if (info) storeFileRecord(record, *info);
    platform::setLastError(0);
}

template <class Ch>
std::int64_t start(const Ch* pattern, Ch** name, FileInfo* info) {
    auto& searches = runningSearches();
    searches.reserve(searches.size() + 1);  // so that noting the search can't fail
    platform::FileRecord record;
    const std::int64_t search = platform::startSearch(SystemText(pattern).get(), record);
    if (!platform::isHandle(search)) return platform::kBadHandle;
    try {
        store(record, name, info);
    } catch (...) {
        platform::endSearch(search);
        throw;
    }
    searches.push_back(search);
    return search;
}

template <class Ch>
std::int64_t findFirst(const Ch* pattern, Ch** name, FileInfo* info) noexcept {
    release(name, info);
    return fileCall(platform::kBadHandle, [&] { return start(pattern, name, info); });
}

template <class Ch>
bool findNext(std::int64_t search, Ch** name, FileInfo* info) noexcept {
    release(name, info);
    return fileCall(false, [&] {
        platform::FileRecord record;
        if (!isRunning(search) || !platform::continueSearch(search, record)) return false;
        store(record, name, info);
        return true;
    });
}

}  // namespace

int64_t FileFindFirst(const char16_t* pattern, char16_t** name, FileInfo* info) noexcept {
    return findFirst(pattern, name, info);
}

int64_t FileFindFirstA(const char* pattern, char** name, FileInfo* info) noexcept {
    return findFirst(pattern, name, info);
}

bool FileFindNext(int64_t findHandle, char16_t** name, FileInfo* info) noexcept {
    return findNext(findHandle, name, info);
}

bool FileFindNextA(int64_t findHandle, char** name, FileInfo* info) noexcept {
    return findNext(findHandle, name, info);
}

bool FileFindClose(int64_t findHandle, uint32_t) noexcept {
    platform::setLastError(0);
    if (!isRunning(findHandle)) return false;
    auto& searches = runningSearches();
    searches.erase(std::find(searches.begin(), searches.end(), findHandle));
    return platform::endSearch(findHandle);
}
