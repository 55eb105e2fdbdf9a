// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "persist/BinaryFile.h"
#include "support/Errors.h"
#include "support/TempDir.h"

using namespace paginox;

TEST(BinaryFile, LengthFollowsWritesThoughItIsRemembered) {
    test::TempDir dir;
    BinaryFile f(dir / "random.dat", FileKind::Random);
    EXPECT_EQ(f.Length(), 0u);
    f.Write("abcd");
    EXPECT_EQ(f.Length(), 4u);
    EXPECT_TRUE(f.AtEnd());
    f.Seek(10);
    f.Write("xy");  // past the end: the gap is part of the file
    EXPECT_EQ(f.Length(), 12u);
    f.Seek(1);
    f.Write("B");  // inside: no longer
    EXPECT_EQ(f.Length(), 12u);
    EXPECT_FALSE(f.AtEnd());
    f.Close();

    BinaryFile r(dir / "random.dat", FileKind::Read);
    EXPECT_EQ(r.Length(), 12u);
    EXPECT_EQ(r.Read(4), "aBcd");
    r.Seek(10);
    EXPECT_EQ(r.Read(2), "xy");
    EXPECT_TRUE(r.AtEnd());
}

TEST(BinaryFile, OpeningForReadingRefusesFoldersAndMissingFiles) {
    test::TempDir dir;
    auto error = [](const std::string& path, FileKind kind) {
        return test::ErrorOf([&] { BinaryFile f(path, kind); });
    };
    EXPECT_EQ(error(dir.Folder(), FileKind::Read), kPathFileAccessError);
    EXPECT_EQ(error(dir.Folder(), FileKind::Write), kPathFileAccessError);
    EXPECT_EQ(error(dir / "missing.dat", FileKind::Read), kFileNotFound);
    EXPECT_EQ(error(dir / "no/missing.dat", FileKind::Read), kPathNotFound);
    EXPECT_FALSE(FileExists(dir.Folder()) || FileExists(dir / "missing.dat"));
    EXPECT_TRUE(FileExists(dir.Write("here.dat", "x")));
    // A pipe would block its reader or writer forever; a device holds no records either.
    ASSERT_EQ(mkfifo((dir / "pipe").c_str(), 0600), 0);
    for (const std::string& path : {dir / "pipe", std::string("/dev/null")}) {
        for (FileKind kind : {FileKind::Read, FileKind::Write, FileKind::Append, FileKind::Random})
            EXPECT_EQ(error(path, kind), kBadFileName) << path << int(kind);
        EXPECT_FALSE(FileExists(path));
    }
}
