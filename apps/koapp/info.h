// koapp info: what a data file holds.
#pragma once

#include <filesystem>

namespace koapp {

// Prints the zones and the parameters of a file. Throws a Failure.
void showInfo(const std::filesystem::path& file);

}  // namespace koapp
