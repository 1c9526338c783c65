// Sessions on the named file: reads, lines, searches, writes and edits in any order, through
// windows of a few bytes, against a plain buffer. And what goes wrong on the way.
#include <gtest/gtest.h>

#include <random>

#include "core/data_file.h"
#include "core/owned_result.h"
#include "core/sparse_file.h"
#include "nuv64/core/file.h"
#include "nuv64/core/memory.h"
#include "support/temp_folder.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#endif

namespace {

// The file and what it is to be, moved together.
class Session {
  public:
    explicit Session(unsigned seed) : random_(seed), content_(text(below(400))) {
        file_.SetPath(folder_.write("session", content_).c_str(), nullptr, nullptr);
        EXPECT_TRUE(file_.OpenExisting(1, 0));
    }

    void step() {
        if (below(3) == 0) file_.windowLimit = 3 + static_cast<std::int64_t>(below(60));
        if (below(40) == 0) file_.DropWindow();
        switch (below(12)) {
            case 0:
            case 1:
                return seek();
            case 2:
            case 3:
            case 4:
                return read();
            case 5:
            case 6:
                return readLine();
            case 7:
                return lineStart();
            case 8:
                return locate();
            case 9:
                return write();
            case 10:
                return replace();
            default:
                return below(2) ? insert() : remove();
        }
    }

    // The bytes on the disk.
    void expectOnDisk() const { EXPECT_EQ(folder_.read("session"), content_); }

  private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string text(std::size_t size) {
        std::string bytes(size, ' ');
        for (char& c : bytes) c = "abc\r\n\x1A"[below(6)];
        return bytes;
    }

    std::size_t place() { return below(content_.size() + 1); }

    void expectPosition() const { ASSERT_EQ(file_.position, static_cast<std::int64_t>(position_)); }

    void seek() {
        position_ = place();
        const auto target = static_cast<std::int64_t>(position_);
        switch (below(3)) {
            case 0:
                ASSERT_TRUE(file_.Seek(target));
                break;
            case 1:
                ASSERT_TRUE(file_.SeekRelative(target - file_.position));
                break;
            default:
                ASSERT_TRUE(file_.SeekEnd());
                position_ = content_.size();
        }
        expectPosition();
    }

    void read() {
        const std::size_t wanted = 1 + below(below(4) == 0 ? 200 : 20);
        std::string bytes(wanted, '#');
        const std::string expected =
            position_ < content_.size() ? content_.substr(position_, wanted) : "";
        const bool skip = below(5) == 0;
        ASSERT_EQ(file_.Read(skip ? nullptr : bytes.data(), static_cast<std::int64_t>(wanted)),
                  static_cast<std::int64_t>(expected.size()));
        ASSERT_EQ(skip ? expected : bytes.substr(0, expected.size()), expected);
        position_ += expected.size();
        expectPosition();
    }

    void readLine() {
        const std::size_t end = content_.find_first_of("\n\x1A", position_);
        const bool complete = end != content_.npos && position_ < content_.size();
        std::string expected = position_ < content_.size()
                                   ? content_.substr(position_, end - position_)
                                   : std::string();
        if (complete && content_[end] == '\n' && !expected.empty() && expected.back() == '\r')
            expected.pop_back();
        const std::size_t next = complete ? end + 1 : std::max(position_, content_.size());
        char* line = nullptr;
        ASSERT_EQ(file_.ReadLine(&line),
                  complete ? static_cast<std::int64_t>(next - position_) : 0);
        ASSERT_EQ(taken(line).value_or(""), expected);
        position_ = next;
        expectPosition();
    }

    void lineStart() {
        while (position_ > 0 && content_[position_ - 1] != '\r' && content_[position_ - 1] != '\n')
            --position_;
        ASSERT_TRUE(file_.LineStart());
        expectPosition();
    }

    void locate() {
        const std::string wanted = text(1 + below(3));
        const bool behind = below(2) != 0;
        const std::size_t found = content_.find(wanted, position_);
        ASSERT_EQ(file_.Locate(wanted.c_str(), behind ? 64 : 0, 0, 0), found != content_.npos);
        position_ = found == content_.npos ? content_.size() : found + (behind ? wanted.size() : 0);
        expectPosition();
    }

    void write() {
        const std::string bytes = text(1 + below(30));
        ASSERT_TRUE(file_.Write(bytes.data(), static_cast<std::int64_t>(bytes.size())));
        content_.replace(position_, bytes.size(), bytes);
        position_ += bytes.size();
        expectPosition();
    }

    void replace() {
        const std::size_t at = place(), old = below(content_.size() - at + 1);
        const std::string bytes = text(1 + below(30));
        ASSERT_TRUE(file_.ReplaceBytes(static_cast<std::int64_t>(at),
                                       static_cast<std::int64_t>(old), bytes.data(),
                                       static_cast<std::int64_t>(bytes.size())));
        content_.replace(at, old, bytes);
        position_ = at + bytes.size();
        expectPosition();
    }

    void insert() {
        const std::size_t at = place();
        const std::string bytes = text(1 + below(50));
        ASSERT_TRUE(file_.InsertBytes(static_cast<std::int64_t>(at), bytes.data(),
                                      static_cast<std::int64_t>(bytes.size())));
        content_.insert(at, bytes);
        position_ = at + bytes.size();
        expectPosition();
    }

    void remove() {
        const std::size_t at = place(), count = 1 + below(80);
        if (at == content_.size()) return;
        ASSERT_TRUE(
            file_.DeleteBytes(static_cast<std::int64_t>(at), static_cast<std::int64_t>(count)));
        content_.erase(at, count);
        position_ = content_.size();
        expectPosition();
    }

    std::mt19937 random_;
    TempFolder folder_{FolderPlace::kMemory};
    std::string content_;
    std::size_t position_ = 0;
    cKoFile file_;
};

TEST(DataFileSession, AnyOrderOfReadsAndChanges) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        Session session(seed);
        for (int i = 0; i < 200; ++i) {
            session.step();
            if (testing::Test::HasFatalFailure()) return;
        }
        session.expectOnDisk();
    }
}

TEST(DataFileSession, LocatesAcrossEverySeam) {
    constexpr std::size_t chunk = 32768;  // bytes that a search takes in at once
    const TempFolder folder(FolderPlace::kMemory);
    std::string name = "a";
    for (const std::size_t seam : {chunk, 2 * chunk - 3}) {
        for (std::size_t place = seam - 6; place <= seam + 2; ++place) {
            std::string content(2 * chunk + 50, 'A');
            content.replace(place, 4, "Abcd");
            cKoFile file(folder.write(name += 'a', content).c_str(), nullptr, nullptr);
            ASSERT_TRUE(file.OpenExisting(0, 0));
            file.windowLimit = 1000;
            EXPECT_EQ(file.Locate("Abcd", 0, 0, 0), 1) << place;
            EXPECT_EQ(file.position, static_cast<std::int64_t>(place));
            EXPECT_EQ(file.Locate("aBCd", 16 | 64, 0, 1), 1) << place;
            EXPECT_EQ(file.position, static_cast<std::int64_t>(place + 4));
        }
    }
}

TEST(DataFileSession, EditsAbove4GiB) {
    const TempFolder folder;
    const std::u16string path = folder.wide("large");
    const std::int64_t place = (std::int64_t{1} << 32) + 5;
    std::int64_t handle = FileOpen(path.c_str(), 1 | 4);
    allowHoles(handle);
    FileSetPointer(handle, place, 0, nullptr);
    ASSERT_TRUE(FileWriteA(handle, "tail"));
    FileClose(&handle, 0);
    cKoFile file(path.c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(1, 0));
    EXPECT_EQ(file.size, place + 4);
    ASSERT_TRUE(file.InsertBytes(place, "head ", 5));
    ASSERT_TRUE(file.DeleteBytes(place + 6, 2));
    EXPECT_EQ(file.QuerySize(), place + 7);
    ASSERT_TRUE(file.ReplaceBytes(place + 5, 1, "nai", 3));
    char bytes[20] = {};
    ASSERT_TRUE(file.Seek(place));
    EXPECT_EQ(file.Read(bytes, 20), 9);
    EXPECT_STREQ(bytes, "head nail");
    EXPECT_EQ(file.Locate("nail", 0, 0, 0), 0);
    ASSERT_TRUE(file.Seek(place - 70000));
    EXPECT_EQ(file.Locate("NAIL", 0, 0, 1), 1);
    EXPECT_EQ(file.position, place + 5);
    ASSERT_TRUE(file.SeekEnd());
    ASSERT_TRUE(file.SeekRelative(-4));
    EXPECT_EQ(file.Read(bytes, 4), 4);
    EXPECT_EQ(std::string(bytes, 4), "nail");
}

#ifndef _WIN32
// No file may grow beyond a limit meanwhile, as on a disk that is full.
class LimitedDisk {
  public:
    explicit LimitedDisk(rlim_t bytes) : signal_(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &saved_);
        struct rlimit limit = saved_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~LimitedDisk() {
        ::setrlimit(RLIMIT_FSIZE, &saved_);
        ::signal(SIGXFSZ, signal_);
    }

  private:
    struct rlimit saved_;
    void (*signal_)(int);
};

TEST(DataFileOnAFullDisk, WhatFailsIsToldAndNothingOldIsLost) {
    const TempFolder folder;
    const std::string content(100000, 'x');
    cKoFile file(folder.write("a", content).c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(1, 0));
    ASSERT_TRUE(file.Seek(7));
    const std::string more(50000, 'y');
    {
        const LimitedDisk disk(content.size() + 10);
        EXPECT_FALSE(file.InsertBytes(50, more.data(), 50000));
        EXPECT_NE(file.lastError, 0u);
        EXPECT_EQ(file.position, 7) << "where it was";
        EXPECT_EQ(folder.read("a").substr(0, content.size()), content);
        ASSERT_TRUE(file.SeekEnd());
        const std::int64_t end = file.position;
        EXPECT_FALSE(file.Write(more.data(), 50000));
        EXPECT_NE(file.lastError, 0u);
        EXPECT_EQ(file.position, end);
        EXPECT_FALSE(file.ReplaceBytes(90000, 10000, more.data(), 50000));
        EXPECT_TRUE(file.DeleteBytes(0, 1000)) << "the other way there is room";
    }
    char byte = 0;
    ASSERT_TRUE(file.Seek(0));
    EXPECT_EQ(file.Read(&byte, 1), 1) << "usable afterwards";
    EXPECT_EQ(byte, 'x');
    EXPECT_TRUE(file.InsertBytes(0, more.data(), 50000));
}

TEST(DataFileOnAFullDisk, ADiscriminatorThatCannotBeWritten) {
    const TempFolder folder;
    const LimitedDisk disk(3);
    cKoFile file(folder.wide("new").c_str(), nullptr, nullptr);
    EXPECT_EQ(file.CreateWithDiscriminator("a long line", 0), 1);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_NE(file.lastError, 0u);
}
#endif

}  // namespace
