// The task script that a freshly loaded experiment carries.
#pragma once

namespace nuv64 {

extern const char* const kDefaultTaskScript;

}  // namespace nuv64
