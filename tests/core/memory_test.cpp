#include "nuv64/core/memory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "core/text_samples.h"

namespace {

constexpr uint32_t kShort = 0x80001;

template <class T>
void expectKills(void (*kill)(T**) noexcept) {
    T* block = static_cast<T*>(std::malloc(32));
    kill(&block);
    EXPECT_EQ(block, nullptr);
    kill(&block);  // a second time, and with nothing to look at
    kill(nullptr);
}

}  // namespace

TEST(Memory, EveryKillReleasesAndWritesNull) {
    expectKills(KillString);
    expectKills(KillStringA);
    expectKills(RArrKill);
    expectKills(RMatKill);
    expectKills(CArrKill);
    expectKills(CMatKill);
    expectKills(CFArrKill);
    expectKills(IArrKill);
    expectKills(IMatKill);
    expectKills(IQArrKill);
    expectKills(IQMatKill);
    expectKills(RPArrKill);
    expectKills(UArrKill);
    expectKills(UMatKill);
    expectKills(UQArrKill);
    expectKills(UQMatKill);
    expectKills(SArrKill);
}

TEST(Memory, TheKillsAreOneFunction) {
    const auto* one = reinterpret_cast<const void*>(KillString);
    EXPECT_EQ(reinterpret_cast<const void*>(KillStringA), one);
    EXPECT_EQ(reinterpret_cast<const void*>(RArrKill), one);
    EXPECT_EQ(reinterpret_cast<const void*>(UQMatKill), one);
}

TEST(Memory, NewStringFillsAndTerminates) {
    EXPECT_EQ(taken(NewStringA(3, 'x')), "xxx");
    EXPECT_EQ(taken(NewString(3, u'\u03c9')), u"\u03c9\u03c9\u03c9");
    EXPECT_EQ(taken(NewStringA(0, 'x')), "");
    EXPECT_EQ(taken(NewString(0, u'x')), u"");
    EXPECT_EQ(taken(NewStringA(1000, 0)), "");
    EXPECT_EQ(taken(NewString(1000, 0)), u"");
}

TEST(Memory, NewStringGivesNullWhenItCannot) {
    for (const uint64_t n : {UINT64_MAX, UINT64_MAX - 1, UINT64_MAX / 2, uint64_t{1} << 62}) {
        EXPECT_EQ(NewStringA(n, 0), nullptr);
        EXPECT_EQ(NewString(n, 0), nullptr);
    }
}

TEST(Memory, SystemAllocatorsAllocateAndRelease) {
    for (const auto allocate : {MemDefaultAllocOrFree, MemGlobalAllocOrFree}) {
        void* block = nullptr;
        EXPECT_EQ(allocate(100, &block), 0u);
        ASSERT_NE(block, nullptr);
        std::memset(block, 1, 100);
        EXPECT_EQ(allocate(0, &block), 0u);
        EXPECT_EQ(block, nullptr);
        EXPECT_EQ(allocate(0, &block), 0u);
        block = &block;
        EXPECT_EQ(allocate(uint64_t{1} << 62, &block), kShort);
        EXPECT_EQ(block, nullptr);
        EXPECT_EQ(allocate(0, nullptr), 0u);
        EXPECT_EQ(allocate(1, nullptr), 18u);
    }
}

TEST(Memory, TheLargestBlockIsReported) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer's allocator takes seconds for each block of this size";
#endif
    for (const auto largest : {MemDefaultMaxAllocatableBlock, MemGlobalMaxAllocatableBlock}) {
        const uint64_t size = largest();
        EXPECT_GE(size, uint64_t{1} << 20);
        EXPECT_LE(size, uint64_t{1} << 40);
    }
}

TEST(Memory, CopyIsAMove) {
    for (uint64_t n = 0; n < 40; ++n) {
        for (int shift = -20; shift <= 20; ++shift) {
            std::vector<unsigned char> bytes(100);
            for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i);
            unsigned char* dst = bytes.data() + 30 + shift;
            EXPECT_EQ(MemCopy(dst, bytes.data() + 30, n), dst);
            for (std::size_t i = 0; i < n; ++i) ASSERT_EQ(dst[i], 30 + i) << n << ' ' << shift;
        }
    }
    char byte = 1;
    EXPECT_EQ(MemCopy(&byte, nullptr, 1), &byte);
    EXPECT_EQ(MemCopy(nullptr, &byte, 1), nullptr);
    EXPECT_EQ(byte, 1);
}

TEST(Memory, ZeroClearsWhatItIsToldTo) {
    for (std::size_t n = 0; n < 20; ++n) {
        std::vector<char> bytes(21, 7);
        EXPECT_EQ(MemZero(bytes.data(), n), bytes.data());
        for (std::size_t i = 0; i < bytes.size(); ++i) EXPECT_EQ(bytes[i], i < n ? 0 : 7);
    }
    EXPECT_EQ(MemZero(nullptr, 100), nullptr);
}

TEST(Memory, TestFindsGoodMemoryGood) {
    std::string bytes = "what was there stays there";
    void* bad = &bytes;
    EXPECT_EQ(MemTest(bytes.data(), bytes.size(), &bad), 0u);
    EXPECT_EQ(bad, nullptr);
    EXPECT_EQ(bytes, "what was there stays there");
    bad = &bytes;
    EXPECT_EQ(MemTest(nullptr, 100, &bad), 0u);
    EXPECT_EQ(bad, nullptr);
    EXPECT_EQ(MemTest(bytes.data(), bytes.size(), nullptr), 0u);
}

TEST(Memory, BytesAsText) {
    const unsigned char bytes[] = {0x05, 0xAF, 0x00};
    char text[64];
    char16_t wide[64];
    EXPECT_EQ(MemToBufferA(bytes, 3, text, 64, 3), 6u);
    EXPECT_STREQ(text, "05AF00");
    EXPECT_EQ(MemToBufferA(bytes, 3, text, UINT64_MAX, 1), 24u);
    EXPECT_STREQ(text, "000001011010111100000000");
    EXPECT_EQ(MemToBuffer(bytes, 3, wide, 64, 3), 6u);
    EXPECT_EQ(std::u16string(wide), u"05AF00");
    EXPECT_EQ(MemToBuffer(bytes, 3, wide, 64, 1), 24u);
    EXPECT_EQ(std::u16string(wide), u"000001011010111100000000");
}

TEST(Memory, BytesAsTextStopWhereTheBufferEnds) {
    const unsigned char bytes[] = {0x12, 0x34, 0x56};
    for (uint64_t capacity = 1; capacity < 9; ++capacity) {
        const auto text = owned(std::string(capacity - 1, '?'));
        const uint64_t length = MemToBufferA(bytes, 3, text.get(), capacity, 3);
        EXPECT_EQ(length, std::min<uint64_t>((capacity - 1) / 2 * 2, 6));
        EXPECT_EQ(std::string(text.get()), std::string("123456", length));
        const auto wide = owned(std::u16string(capacity - 1, u'?'));
        EXPECT_EQ(MemToBuffer(bytes, 3, wide.get(), capacity, 3), length);
    }
    char text[20] = "kept";
    EXPECT_EQ(MemToBufferA(bytes, 3, text, 20, 2), 0u);
    EXPECT_EQ(MemToBufferA(bytes, 3, text, 0, 3), 0u);
    EXPECT_EQ(MemToBufferA(nullptr, 3, text, 20, 3), 0u);
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(MemToBufferA(bytes, 3, nullptr, 20, 3), 0u);
    EXPECT_EQ(MemToBufferA(bytes, 3, text, 16, 1), 8u);
    EXPECT_STREQ(text, "00010010");
    EXPECT_EQ(MemToBufferA(bytes, 3, text, 17, 1), 16u);
}

TEST(Memory, NewTextOfBytesAndBack) {
    std::vector<unsigned char> bytes(300);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 37);
    for (const uint32_t mode : {1u, 3u}) {
        char* text = nullptr;
        uint64_t length = 0;
        ASSERT_EQ(NewAsciFromMem(mode, bytes.data(), bytes.size(), &text, &length), 0u);
        EXPECT_EQ(length, bytes.size() * (mode == 1 ? 8 : 2));
        EXPECT_EQ(std::strlen(text), length);
        std::vector<unsigned char> back(bytes.size() + 1, 9);
        uint64_t count = back.size();
        EXPECT_EQ(MemFromAsci(mode, text, back.data(), &count), 0u);
        EXPECT_EQ(count, bytes.size());
        EXPECT_EQ(back.back(), 0);
        back.pop_back();
        EXPECT_EQ(back, bytes);
        KillStringA(&text);
    }
}

TEST(Memory, NewTextOfBytesRefuses) {
    char byte = 1;
    char* text = &byte;
    uint64_t length = 77;
    EXPECT_EQ(NewAsciFromMem(3, nullptr, 0, &text, &length), 14u);
    EXPECT_EQ(NewAsciFromMem(3, &byte, 0, &text, &length), 0u);
    EXPECT_EQ(NewAsciFromMem(7, &byte, 0, &text, &length), 0u);
    EXPECT_EQ(NewAsciFromMem(2, &byte, 1, &text, &length), 9u);
    EXPECT_EQ(NewAsciFromMem(1, &byte, UINT64_MAX / 4, &text, &length), kShort);
    EXPECT_EQ(NewAsciFromMem(3, &byte, UINT64_MAX / 2, &text, &length), kShort);
    EXPECT_EQ(text, &byte);
    EXPECT_EQ(length, 77u);
    EXPECT_EQ(NewAsciFromMem(3, &byte, 1, nullptr, nullptr), 0u);
}

TEST(Memory, BytesFromText) {
    unsigned char bytes[4] = {9, 9, 9, 9};
    uint64_t count = 4;
    EXPECT_EQ(MemFromAsci(3, "ffA1b", bytes, &count), 0u);  // the last group is short
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(bytes[0], 0xFF);
    EXPECT_EQ(bytes[1], 0xA1);
    EXPECT_EQ(bytes[2], 0);
    EXPECT_EQ(bytes[3], 9);
    count = 2;
    EXPECT_EQ(MemFromAsci(3, "010203", bytes, &count), 0u);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[1], 0);
    count = 4;
    EXPECT_EQ(MemFromAsci(3, "zz4z", bytes, &count), 0u);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(bytes[0], 0);
    EXPECT_EQ(bytes[1], 4);
    count = 0;
    bytes[0] = 5;
    EXPECT_EQ(MemFromAsci(1, "01010101", bytes, &count), 0u);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(bytes[0], 5);
    count = 4;
    EXPECT_EQ(MemFromAsci(2, "01", bytes, &count), 9u);
    EXPECT_EQ(MemFromAsci(3, nullptr, bytes, &count), 14u);
    EXPECT_EQ(MemFromAsci(3, "01", nullptr, &count), 18u);
    EXPECT_EQ(MemFromAsci(3, "01", bytes, nullptr), 18u);
}

TEST(Memory, InvertBytesOrder) {
    char odd[] = "abcde", even[] = "abcd";
    InvertBytesOrder(odd, 5);
    InvertBytesOrder(even, 4);
    EXPECT_STREQ(odd, "edcba");
    EXPECT_STREQ(even, "dcba");
    InvertBytesOrder(odd, 0);
    InvertBytesOrder(nullptr, 5);
    EXPECT_STREQ(odd, "edcba");
}

TEST(Memory, ThereIsNoCrc) {
    uint64_t result = 5;
    EXPECT_EQ(CrcFromMem(0, "abc", 3, &result), 9u);
    EXPECT_EQ(CrcFromMem(1, nullptr, 0, nullptr), 9u);
    EXPECT_EQ(result, 5u);
}

TEST(Memory, SeedsDiffer) {
    std::set<uint64_t> seeds;
    const uint64_t first = KoRandomSeed();
    for (int i = 0; i < 1000000 && seeds.size() < 3; ++i) seeds.insert(KoRandomSeed());
    EXPECT_GE(seeds.size(), 3u);
    EXPECT_GE(*seeds.rbegin(), first);
}
