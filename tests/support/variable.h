// An environment variable that has a value, or none, for the time of one test.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "nuv64/core/system.h"

class Variable {
  public:
    Variable(const char* name, const std::string& value) : Variable(name) {
        EXPECT_TRUE(OsSetEnvironmentVariableA(name, value.c_str()));
    }
    Variable(const char* name, std::nullopt_t) : Variable(name) {
        EXPECT_TRUE(OsSetEnvironmentVariableA(name, nullptr));
    }
    ~Variable() { OsSetEnvironmentVariableA(name_, old_ ? old_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    explicit Variable(const char* name) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
    }
    const char* name_;
    std::optional<std::string> old_;
};
