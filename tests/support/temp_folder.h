// A folder of its own for the files of one test, and names as the module takes them.
#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class TempFolder {
  public:
    TempFolder() {
        std::random_device device;
        path_ = std::filesystem::temp_directory_path() /
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
        std::ifstream file(native(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

  private:
    static std::atomic<int>& counter() {
        static std::atomic<int> value{0};
        return value;
    }
    std::filesystem::path path_;
};
