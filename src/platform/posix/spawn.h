// Starting programs without a shell.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace nuv64::platform {

// Descriptors that the program gets as its standard streams; -1 for those of this process.
struct Streams {
    int input = -1;
    int output = -1;
    int error = -1;
};

// Starts words[0], looked up along PATH when it has no "/", with all words as its arguments, in
// folder (empty: the current one). Its id, or -1 with the last-error slot set. The caller has to
// wait for its end.
pid_t spawnProgram(std::vector<std::string> words, const std::string& folder,
                   const Streams& streams = {});

}  // namespace nuv64::platform
