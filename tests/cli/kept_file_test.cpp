#include "cli/kept_file.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "automation/error.h"

namespace foliant::cli {
namespace {

namespace fs = std::filesystem;

class Kept : public testing::Test {
  protected:
    Kept() {
        folder = testing::TempDir() + "foliant-kept-" + std::to_string(getpid());
        fs::create_directory(folder);
        output = folder / "out.pdf";
    }
    ~Kept() override { fs::remove_all(folder); }

    static void write(const fs::path& path, const std::string& content) { std::ofstream(path) << content; }
    void keep(KeptFile& file) const {
        file.expect(output);
        file.keep();
    }
    void keep() { keep(kept); }
    /// In another process, which ends with it kept, and what became of the file since.
    template <class Deed>
    void keep_elsewhere(Deed deed) {
        kept.expect(output);
        const pid_t other = fork();
        if (other == 0) {
            kept.keep();
            deed();
            _exit(0);
        }
        waitpid(other, nullptr, 0);
        EXPECT_FALSE(kept) << "nobody has looked";
        kept.take_notice();
    }
    std::string read() const {
        std::ostringstream content;
        content << std::ifstream(output).rdbuf();
        return content.str();
    }
    /// As a host does it: made under another name, then named.
    void replace(const std::string& content) const {
        fs::remove(output);
        write(folder / "pending", content);
        fs::rename(folder / "pending", output);
    }
    long files() const { return std::distance(fs::directory_iterator(folder), fs::directory_iterator()); }

    fs::path folder;
    fs::path output;
    KeptFile kept;
};

TEST_F(Kept, ComesBackAsTheVeryFileThatItWas) {
    write(output, "old");
    fs::permissions(output, fs::perms::owner_read);
    fs::create_hard_link(output, folder / "link");
    keep();
    replace("new");
    kept.put_back();
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(fs::status(output).permissions(), fs::perms::owner_read);
    EXPECT_TRUE(fs::equivalent(output, folder / "link"));
    EXPECT_EQ(files(), 2);
}

TEST_F(Kept, ThatWasLostComesBackWithTheNextCall) {
    write(output, "old");
    const pid_t killed = fork();
    if (killed == 0) {
        keep();
        fs::remove(output);
        _exit(0);
    }
    waitpid(killed, nullptr, 0);
    ASSERT_FALSE(fs::exists(output));
    EXPECT_TRUE(KeptFile::bring_back_lost(output));
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 1);
    EXPECT_FALSE(KeptFile::bring_back_lost(output));
}

TEST_F(Kept, IsNotTakenFromACallThatGoesOn) {
    write(output, "old");
    keep();
    fs::remove(output);
    EXPECT_FALSE(KeptFile::bring_back_lost(output));
    kept.put_back();
    EXPECT_EQ(read(), "old");
}

TEST_F(Kept, ThatWasLostReplacesNothingAndIsNobodyElses) {
    write(output, "new");
    write(folder / ".out.pdf.kept-by-foliant-1", "old");
    EXPECT_FALSE(KeptFile::bring_back_lost(output));
    EXPECT_EQ(read(), "new");
    EXPECT_FALSE(KeptFile::bring_back_lost(folder / "ut.pdf"));
    EXPECT_FALSE(KeptFile::bring_back_lost(folder / "none" / "out.pdf"));
    EXPECT_EQ(files(), 2);
}

TEST_F(Kept, ComesBackWhenNothingStandsInItsPlace) {
    write(output, "old");
    keep();
    fs::remove(output);
    kept.put_back();
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, LeavesNothingBehindWhenItWasNeverReplaced) {
    write(output, "old");
    keep();
    EXPECT_TRUE(kept.is_in_place());
    kept.put_back();
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, MakesWayForTheNewFile) {
    write(output, "old");
    keep();
    replace("new");
    EXPECT_FALSE(kept.is_in_place());
    kept.drop();
    EXPECT_EQ(read(), "new");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, IsALinkWhenALinkStoodThere) {
    write(folder / "v1.pdf", "old");
    fs::create_symlink("v1.pdf", output);
    keep();
    replace("new");
    kept.put_back();
    EXPECT_EQ(fs::read_symlink(output), "v1.pdf");
    EXPECT_EQ(files(), 2);
}

TEST_F(Kept, GivesItsRightsToTheNewFile) {
    write(output, "old");
    fs::permissions(output, fs::perms(0664));
    keep();
    {
        const OwnersOnly meanwhile;
        replace("new");
    }
    EXPECT_EQ(fs::status(output).permissions(), fs::perms(0600)) << "nobody else's meanwhile";
    kept.drop();
    EXPECT_EQ(read(), "new");
    EXPECT_EQ(fs::status(output).permissions(), fs::perms(0664));
}

TEST_F(Kept, GivesItsOwnerToTheNewFile) {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
    write(output, "old");
    ASSERT_EQ(chown(output.c_str(), 1000, 33), 0);
    fs::permissions(output, fs::perms(0640));
    keep();
    replace("new");
    kept.drop();
    struct stat status {};
    ASSERT_EQ(stat(output.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1000U);
    EXPECT_EQ(status.st_gid, 33U);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(Kept, ALinkGivesTheRightsOfItsFileToTheNewOne) {
    write(folder / "v1.pdf", "old");
    fs::permissions(folder / "v1.pdf", fs::perms(0600));
    fs::create_symlink("v1.pdf", output);
    keep();
    replace("new");
    kept.drop();
    EXPECT_EQ(fs::status(output).permissions(), fs::perms(0600));
    EXPECT_EQ(files(), 2);
}

TEST_F(Kept, OfALinkTheFileThatItLeadsToComesBackToo) {
    write(folder / "v1.pdf", "old");
    fs::create_symlink("v1.pdf", output);
    keep();
    EXPECT_TRUE(kept.is_in_place());
    write(folder / "pending", "new");
    fs::rename(folder / "pending", folder / "v1.pdf");
    EXPECT_FALSE(kept.is_in_place()) << "a new file was made";
    kept.put_back();
    EXPECT_EQ(fs::read_symlink(output), "v1.pdf");
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 2);
}

TEST_F(Kept, ThatWasALinkComesBackWithTheNextCall) {
    write(folder / "v1.pdf", "old");
    fs::create_symlink("v1.pdf", folder / ".out.pdf.kept-by-foliant-1");
    EXPECT_TRUE(KeptFile::bring_back_lost(output));
    EXPECT_EQ(fs::read_symlink(output), "v1.pdf");
}

TEST_F(Kept, IsNothingWhereNothingStood) {
    keep();
    replace("new");
    kept.put_back();
    EXPECT_EQ(read(), "new");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, NamesOfAnyLengthAreKept) {
    output = folder / std::string(255, 'x');
    write(output, "old");
    keep();
    replace("new");
    kept.put_back();
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, ASecondCallForTheSameFileIsRefusedUntilTheFirstHasEnded) {
    write(output, "old");
    keep();
    KeptFile second;
    try {
        keep(second);
        FAIL() << "two calls replace one file";
    } catch (const automation::Error& error) {
        EXPECT_NE(error.description().find("is being replaced by another call"), std::string::npos);
    }
    kept.put_back();
    KeptFile third;
    keep(third);
    third.drop();
}

TEST_F(Kept, ACallThatChangesTheFileInPlaceIsRefusedLikewiseAlsoThroughALink) {
    write(output, "old");
    fs::create_symlink("out.pdf", folder / "link.pdf");
    ReplacementLock first;
    first.take(output, "Wait for it.");
    for (const char* name : {"out.pdf", "link.pdf"}) {
        ReplacementLock second;
        try {
            second.take(folder / name, "Wait for it.");
            FAIL() << "two calls change one file";
        } catch (const automation::Error& error) {
            EXPECT_EQ(
                error.description(),
                (folder / name).string() + " is being replaced by another call at this moment. Wait for it.");
        }
        KeptFile third;
        third.expect(folder / name);
        EXPECT_THROW(third.keep(), automation::Error);
    }
    first.give_up();
    EXPECT_NO_THROW(ReplacementLock().take(output, "Wait for it."));
}

TEST_F(Kept, TheLockIsThatOfTheFileThatHasTheNameNotOfOneThatWasReplacedMeanwhile) {
    write(output, "0");
    constexpr int processes = 3;
    const auto count_up = [&](int own, int times) {
        for (int done = 0; done < times;) {
            ReplacementLock lock;
            try {
                lock.take(output, "");
            } catch (const automation::Error&) {
                continue;
            }
            const fs::path pending = folder / std::to_string(own);
            write(pending, std::to_string(std::stoi(read()) + 1));
            fs::rename(pending, output);
            ++done;
        }
    };
    for (int own = 0; own < processes; ++own) {
        if (fork() == 0) {
            count_up(own, 300);
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }
    EXPECT_EQ(read(), "900") << "a call has lost what another one did";
}

TEST_F(Kept, ByAForkedProcessIsPutBackByTheOneThatForkedIt) {
    write(output, "old");
    keep_elsewhere([&] { fs::remove(output); });
    EXPECT_TRUE(kept);
    kept.put_back();
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, ByAForkedProcessIsDroppedByTheOneThatForkedIt) {
    write(output, "old");
    fs::permissions(output, fs::perms(0640));
    keep_elsewhere([&] { replace("new"); });
    EXPECT_FALSE(kept.is_in_place());
    kept.drop();
    EXPECT_EQ(read(), "new");
    EXPECT_EQ(fs::status(output).permissions(), fs::perms(0640));
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, ByAForkedProcessALinkComesBackWithItsFile) {
    write(folder / "v1.pdf", "old");
    fs::create_symlink("v1.pdf", output);
    keep_elsewhere([&] {
        fs::remove(folder / "v1.pdf");
        fs::remove(output);
    });
    kept.put_back();
    EXPECT_EQ(fs::read_symlink(output), "v1.pdf");
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 2);
}

TEST_F(Kept, ByAForkedProcessIsLockedUntilItIsSettled) {
    write(output, "old");
    keep_elsewhere([] {});
    KeptFile second;
    EXPECT_THROW(keep(second), automation::Error) << "the process that locked it has ended";
    kept.put_back();
    KeptFile third;
    keep(third);
    third.drop();
}

TEST_F(Kept, ByAForkedProcessThatKeptNothingIsNothing) {
    write(output, "old");
    kept.expect(output);
    kept.take_notice();
    EXPECT_FALSE(kept);
    kept.put_back();
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(Kept, AFolderThatMayNotBeWrittenIsToldInTime) {
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may write anywhere";
    write(output, "old");
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THROW(keep(), automation::Error);
    fs::permissions(folder, fs::perms::owner_all);
}

}  // namespace
}  // namespace foliant::cli
