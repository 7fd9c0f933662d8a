// SPDX-License-Identifier: GPL-3.0-or-later
// The root object, its files and its settings.
#include "application/application.h"
#include "application/program_folder.h"
#include "application/settings.h"
#include "data/atomic_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace kaloria {
namespace {

namespace fs = std::filesystem;

/// A folder of its own, gone with the test.
class ScratchFolder {
public:
    ScratchFolder() : path_(fs::temp_directory_path() / ("kaloria-test-" + std::to_string(::getpid()))) {
        fs::remove_all(path_);
        fs::create_directories(path_);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        fs::permissions(path_, fs::perms::owner_all, ignored);
        fs::remove_all(path_, ignored);
    }
    [[nodiscard]] const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

void Write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

class Application : public ::testing::Test {
protected:
    Application() : application(folder.Path(), messages) {
        for (const char* name : {"CorvaneConfig.xml", "Default.kal"}) {
            fs::copy_file(fs::path(KALORIA_RESOURCES_DIR) / name, folder.Path() / name);
        }
    }

    ScratchFolder folder;
    MessageList messages;
    CApplication application;
};

TEST_F(Application, OpensWhatItSavesInBothUnits) {
    ASSERT_TRUE(application.LoadConfigurationFile());
    application.JobPath = application.DefaultJobPath();
    ASSERT_TRUE(application.OpenJob());
    application.CurrentJob()[Field::Units] = "SI";
    application.CurrentJob()[Field::CompanyName] = "Bräu & Söhne <Kessel>";
    application.JobPath = folder.Path() / "mine.kal";
    ASSERT_TRUE(application.SaveJob());
    application.JobPath = application.DefaultJobPath();
    ASSERT_TRUE(application.OpenJob());
    EXPECT_FALSE(application.SI);
    application.JobPath = folder.Path() / "mine.kal";
    ASSERT_TRUE(application.OpenJob());
    EXPECT_TRUE(application.SI);
    EXPECT_EQ(application.Report().CompanyName, "Bräu & Söhne <Kessel>");
    EXPECT_TRUE(messages.shown.empty());
}

/// What a job leaves out takes its default in the job's own units, never a left-over of the job before.
TEST_F(Application, AJobDecidesItsResultsAlone) {
    ASSERT_TRUE(application.LoadConfigurationFile());
    application.JobPath = application.DefaultJobPath();
    ASSERT_TRUE(application.OpenJob());
    application.CurrentJob()[Field::WindSpeed] = "40";
    Write(folder.Path() / "short.kal",
          "<Job Version=\"4\"><Units>SI</Units><ProcessTemp>200</ProcessTemp></Job>");
    application.JobPath = folder.Path() / "short.kal";
    ASSERT_TRUE(application.OpenJob());
    EXPECT_EQ(application.CurrentJob()[Field::ProcessTemp], "200");
    EXPECT_EQ(application.CurrentJob()[Field::WindSpeed], "0.9");
    EXPECT_EQ(application.CurrentJob()[Field::PipeSize], "150");
    EXPECT_TRUE(application.Calculate().HasAnswer());
}

TEST_F(Application, ShowsTheFixedTextOfEachFailure) {
    const std::string longText(5000, 'x');
    const struct {
        const char* text; ///< of the job file; null: no file
        std::string_view shown;
    } rows[] = {
        {nullptr, message::fileNotFound},
        {"<Job Version=\"4.0\"><ProcessTemp>1</ProcessTemp></Job>", message::wrongVersion},
        {"<Job><ProcessTemp>1</ProcessTemp></Job>", message::wrongVersion},
        {"", message::openingJob},
        {"no job at all", message::openingJob},
        {"<Job Version=\"4\"><ProcessTemp>1</Proc", message::openingJob},
    };
    ASSERT_TRUE(application.LoadConfigurationFile());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shown);
        application.CurrentJob()[Field::ProcessTemp] = "555";
        application.JobPath = folder.Path() / "broken.kal";
        fs::remove(application.JobPath);
        if (row.text != nullptr) {
            Write(application.JobPath, row.text);
        }
        messages.shown.clear();
        EXPECT_FALSE(application.OpenJob());
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0], row.shown);
        EXPECT_EQ(application.CurrentJob()[Field::ProcessTemp], "555"); // nothing else changes
    }
    application.JobPath = folder.Path() / "no folder" / "a.kal";
    EXPECT_FALSE(application.SaveJob());
    EXPECT_EQ(messages.shown.back(), message::savingJob);
    Write(application.ConfigurationPath(), "<Corvane><Fuels><Fuel ID=\"1,5\"/></Fuels></Corvane>");
    CApplication broken(folder.Path(), messages);
    EXPECT_FALSE(broken.LoadConfigurationFile());
    EXPECT_EQ(messages.shown.back(), message::loadingMaterials);
    EXPECT_NE(messages.logged.back().find("CorvaneConfig.xml:1:"), std::string::npos)
        << messages.logged.back();
}

TEST_F(Application, HandsOutItsOwnCollectionsAndHeaders) {
    ASSERT_TRUE(application.LoadConfigurationFile());
    const std::size_t count = application.Fuels().size();
    application.Fuels().emplace_back().Name = "Peat";
    EXPECT_EQ(application.Fuels().size(), count + 1);
    EXPECT_FALSE(application.HeaderText(1, 2).empty());
    EXPECT_EQ(application.HeaderText(1, 2), application.HeaderText(1, 2, 0));
    EXPECT_THROW((void)application.HeaderText(6, 0), std::out_of_range);
    EXPECT_THROW((void)application.HeaderText(0, 0, 11), std::out_of_range);
    EXPECT_THROW((void)application.HeaderText(-1, 0), std::out_of_range);
}

TEST(Settings, FirstStartAsksOnceAndTheFileKeepsTheAnswer) {
    const ScratchFolder folder;
    const fs::path file = folder.Path() / "deep" / "Kaloria.ini";
    {
        FileSettings settings(file);
        const auto first = ReadStartUpChoices(settings);
        EXPECT_TRUE(first.showDisclaimer && first.firstRun);
        EXPECT_EQ(settings.Get("Application", "FirstRun"), "TRUE"); // until the user has been asked
        EndFirstRun(settings);
    }
    FileSettings settings(file);
    EXPECT_EQ(settings.Get("Application", "ShowDisclaimer"), "TRUE");
    EXPECT_EQ(settings.Get("Application", "FirstRun"), "FALSE");
    const auto second = ReadStartUpChoices(settings);
    EXPECT_TRUE(second.showDisclaimer);
    EXPECT_FALSE(second.firstRun);
    settings.Set("Application", "ShowDisclaimer", "true"); // only exactly "TRUE" counts
    settings.Set("Window", "Title", "two\nlines = one");
    FileSettings reread(file);
    EXPECT_FALSE(ReadStartUpChoices(reread).showDisclaimer);
    EXPECT_EQ(reread.Get("Window", "Title"), "two lines = one");
    Write(file, std::string("[broken\n=\n\0garbage", 18));
    EXPECT_EQ(FileSettings(file).Get("Application", "FirstRun"), "");
}

/// Three places below a folder of its own, with what ships in `share`.
struct ProgramPlacesTest : ::testing::Test {
    ScratchFolder folder;
    ProgramPlaces places{folder.Path() / "bin", folder.Path() / "share", folder.Path() / "user"};
    MessageList messages;

    fs::path Choose() {
        messages.logged.clear();
        return ChooseProgramFolder(places, messages);
    }
    void Ship(const std::string& name, const std::string& text) const {
        Write(places.installedResources / name, text);
    }
    [[nodiscard]] std::string Mine(const std::string& name) const {
        return ReadFile(places.userData / name, 10'000);
    }
    void WriteMine(const std::string& name, const std::string& text) const {
        Write(places.userData / name, text);
    }
};

TEST_F(ProgramPlacesTest, TheExecutablesOwnTheUsersOrTheShippedFolder) {
    Write(places.executableFolder / "CorvaneConfig.xml", "<own/>");
    EXPECT_EQ(Choose(), places.executableFolder); // unpacked or built by the user

    fs::remove(places.executableFolder / "CorvaneConfig.xml");
    Ship("CorvaneConfig.xml", "<installed/>");
    Ship("images/a.png", "picture");
    Ship("kaloria", "program");
    EXPECT_EQ(Choose(), places.userData); // /usr/bin, even where root may write
    EXPECT_EQ(Mine("CorvaneConfig.xml"), "<installed/>");
    EXPECT_EQ(Mine("images/a.png"), "picture");
    EXPECT_FALSE(fs::exists(places.userData / "kaloria"));

    places.userData = folder.Path() / "share" / "images" / "a.png" / "no folder";
    EXPECT_EQ(Choose(), places.installedResources);
    EXPECT_EQ(messages.logged.size(), 1U);
    places.userData.clear();
    EXPECT_EQ(Choose(), places.installedResources);
}

TEST_F(ProgramPlacesTest, AnUpgradeRenewsWhatTheUserHasNotChanged) {
    Ship("CorvaneConfig.xml", "<c/>");
    for (const char* name : {"left.rtf", "edited.rtf", "reverted.rtf", "equal.rtf", "no longer.rtf"}) {
        Ship(name, "version 1");
    }
    WriteMine("stranger.rtf", "from elsewhere");
    Ship("stranger.rtf", "version 1");
    (void)Choose();
    EXPECT_EQ(messages.logged.size(), 1U) << "the stranger is told";
    WriteMine("edited.rtf", "with our logo");
    WriteMine("reverted.rtf", "with our logo");
    WriteMine("equal.rtf", "version 2");
    for (const char* name : {"left.rtf", "edited.rtf", "reverted.rtf", "equal.rtf", "new.rtf"}) {
        Ship(name, "version 2");
    }
    fs::remove(places.installedResources / "no longer.rtf");
    (void)Choose();
    ASSERT_EQ(messages.logged.size(), 2U); // edited and not yet reverted
    EXPECT_NE(messages.logged[0].find("kept as it was changed here"), std::string::npos);
    WriteMine("reverted.rtf", "version 1");
    (void)Choose();
    EXPECT_TRUE(messages.logged.empty()) << "once for each version";
    EXPECT_EQ(Mine("left.rtf"), "version 2");
    EXPECT_EQ(Mine("edited.rtf"), "with our logo");
    EXPECT_EQ(Mine("reverted.rtf"), "version 2");
    EXPECT_EQ(Mine("equal.rtf"), "version 2");
    EXPECT_EQ(Mine("new.rtf"), "version 2");
    EXPECT_EQ(Mine("no longer.rtf"), "version 1");
    EXPECT_EQ(Mine("stranger.rtf"), "from elsewhere");

    // Without the memory of what was copied everything that differs is the user's.
    WriteMine("shipped-files.txt", "damaged");
    Ship("left.rtf", "version 3");
    (void)Choose();
    EXPECT_EQ(Mine("left.rtf"), "version 2");

    // A file that cannot be replaced stays, and the others get theirs.
    fs::remove(places.userData / "new.rtf");
    fs::create_directory(places.userData / "new.rtf");
    Ship("new.rtf", "version 3");
    Ship("one more.rtf", "version 3");
    (void)Choose();
    EXPECT_FALSE(messages.logged.empty());
    EXPECT_EQ(Mine("one more.rtf"), "version 3");
}

std::string Metals(const std::string& records) {
    return "<Corvane>\n\t<Insulations />\n\t<BaseMetals>\n" + records +
           "\t</BaseMetals>\n\t<JacketMaterials />\n" + "\t<Fuels />\n</Corvane>\n";
}

std::string Metal(int id, const std::string& name, const char* emittance, const char* by = "System") {
    return "\t\t<BaseMetal ID=\"" + std::to_string(id) + "\" Active=\"True\" Name=\"" + name +
           "\" CreatedBy=\"" + by + "\" Emittance=\"" + emittance + "\" />\n";
}

TEST_F(ProgramPlacesTest, AnUpgradedConfigurationKeepsTheUsersRecords) {
    const std::string steel = Metal(1, "Steel", "0.8");
    const std::string betterSteel = Metal(1, "Steel", "0.85");
    const std::string newer = Metal(2, "Monel", "0.4") + Metal(3, "Inconel", "0.3") + Metal(9, "Ours", "0.2");
    struct Row {
        const char* why;
        std::string mine;
        std::string expected;
        std::size_t notes;
    };
    const Row rows[] = {
        {"no record of one's own", Metals(steel), Metals(betterSteel + newer), 0},
        {"a record of one's own", Metals(steel + Metal(4, "Zinc", "0.1", "User")),
         Metals(betterSteel + newer + Metal(4, "Zinc", "0.1", "User")), 0},
        {"its ID is taken by a newer one, its name by another: jobs go by them",
         Metals(steel + Metal(2, "Ours", "0.1", "User")),
         Metals(betterSteel + Metal(3, "Inconel", "0.3") + Metal(2, "Ours", "0.1", "User")), 1},
        {"a record of one's own that has always stood behind the supplied one of its ID",
         Metals(steel + Metal(1, "Steel", "0.1", "User")),
         Metals(betterSteel + newer + Metal(1, "Steel", "0.1", "User")), 0},
        {"a supplied record was edited", Metals(Metal(1, "Steel", "0.9")), Metals(Metal(1, "Steel", "0.9")),
         1},
        {"damaged", "<Corvane><BaseMetals>", "<Corvane><BaseMetals>", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        fs::remove_all(places.userData);
        Ship("CorvaneConfig.xml", Metals(steel));
        (void)Choose();
        WriteMine("CorvaneConfig.xml", row.mine);
        Ship("CorvaneConfig.xml", Metals(betterSteel + newer));
        (void)Choose();
        EXPECT_EQ(Mine("CorvaneConfig.xml"), row.expected);
        EXPECT_EQ(messages.logged.size(), row.notes);
    }

    // What was left out comes when the user's record has gone, and the next version as well.
    fs::remove_all(places.userData);
    Ship("CorvaneConfig.xml", Metals(steel));
    (void)Choose();
    WriteMine("CorvaneConfig.xml", rows[2].mine);
    Ship("CorvaneConfig.xml", Metals(betterSteel + newer));
    (void)Choose();
    WriteMine("CorvaneConfig.xml", Metals(betterSteel + Metal(3, "Inconel", "0.3")));
    (void)Choose();
    EXPECT_EQ(Mine("CorvaneConfig.xml"), Metals(betterSteel + newer));
    EXPECT_TRUE(messages.logged.empty());
    Ship("CorvaneConfig.xml", Metals(steel));
    (void)Choose();
    EXPECT_EQ(Mine("CorvaneConfig.xml"), Metals(steel));
}

} // namespace
} // namespace kaloria
