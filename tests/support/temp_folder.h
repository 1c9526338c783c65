// A folder of its own for the files of one test, and names as the module takes them.
//
// Tests that write or flush files thousands of times take FolderPlace::kMemory: a disk would need
// most of their time for flushes. Where the system has no such place they get the usual one.
#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

enum class FolderPlace { kDisk, kMemory };

class TempFolder {
  public:
    explicit TempFolder(FolderPlace place = FolderPlace::kDisk) {
        std::random_device device;
        path_ =
            (place == FolderPlace::kMemory ? inMemory() : std::filesystem::temp_directory_path()) /
            ("nuv64_data_" + std::to_string(device()) + std::to_string(++counter()));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::filesystem::path native(const std::string& name) const { return path_ / name; }
    // Full 16-bit name; the names of tests are plain ASCII.
    std::u16string wide(const std::string& name) const {
        const std::string text = native(name).string();
        return std::u16string(text.begin(), text.end());
    }
    std::u16string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(native(name), std::ios::binary) << bytes;
        return wide(name);
    }
    std::string read(const std::string& name) const {
        std::ifstream file(native(name), std::ios::binary | std::ios::ate);
        std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, 0);
        file.seekg(0);
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return bytes;
    }

  private:
    static std::filesystem::path inMemory() {
#ifdef _WIN32
        const std::filesystem::path place = "Z:\\dev\\shm";  // as Wine shows it
#else
        const std::filesystem::path place = "/dev/shm";
#endif
        std::error_code ignored;
        return std::filesystem::is_directory(place, ignored)
                   ? place
                   : std::filesystem::temp_directory_path();
    }
    static std::atomic<int>& counter() {
        static std::atomic<int> value{0};
        return value;
    }
    std::filesystem::path path_;
};
