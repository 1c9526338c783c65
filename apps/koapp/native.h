// What the program needs from its system: arguments, paths, terminals, files.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace koapp {

// The words of the command line behind the program's name, whatever the system's encoding.
std::vector<std::filesystem::path> commandLineWords(int argc, char** argv);

std::string utf8(const std::filesystem::path& path);
std::filesystem::path pathFromUtf8(std::string_view text);

// A path as the module takes it: absolute, 16-bit, with backslashes. Throws a Failure for a name
// that can't be told to the module.
std::u16string modulePath(const std::filesystem::path& path);

// A path of the module as this system writes it, in UTF-8.
std::string shownPath(const char16_t* path);

// Makes the console take UTF-8.
void prepareConsole() noexcept;
bool isTerminal(std::FILE* stream) noexcept;

// Whole files. Both throw a Failure.
std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, std::string_view text);

// Writes to standard output, and makes sure that it arrived. Both throw a Failure.
void print(std::string_view text);
void flushOutput();

}  // namespace koapp
