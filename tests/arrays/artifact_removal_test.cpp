#include "nuv64/arrays/artifact_removal.h"

#include <gtest/gtest.h>

#include <bit>

namespace {

TEST(ArtifactRemoval, IsAReservedName) {
    const double parameter = 1.0;
    double result = 1.0;
    EXPECT_EQ(RArrArtifactRemoval(nullptr, 1, 2, nullptr), 0u);
    EXPECT_EQ(RArrArtifactRemoval(&result, 1, 2, nullptr), 21u);
    EXPECT_EQ(result, 1.0);
    EXPECT_EQ(RArrArtifactRemoval(&result, 1, 2, &parameter), 0u);
    EXPECT_EQ(std::bit_cast<uint64_t>(result), 0xFFFF000000000000u);
}

}  // namespace
