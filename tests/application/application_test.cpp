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

TEST(ProgramFolder, IsTheExecutablesOwnOrTheUsersSeededOne) {
    const ScratchFolder folder;
    const ProgramPlaces places{folder.Path() / "bin", folder.Path() / "share", folder.Path() / "user"};
    Write(places.executableFolder / "CorvaneConfig.xml", "<own/>");
    EXPECT_EQ(ChooseProgramFolder(places), places.executableFolder); // unpacked or built by the user

    fs::remove(places.executableFolder / "CorvaneConfig.xml");
    Write(places.installedResources / "CorvaneConfig.xml", "<installed/>");
    Write(places.installedResources / "images" / "a.png", "picture");
    Write(places.userData / "Default.kal", "my own default");
    Write(places.installedResources / "Default.kal", "shipped default");
    EXPECT_EQ(ChooseProgramFolder(places), places.userData); // /usr/bin, even where root may write
    EXPECT_EQ(ReadFile(places.userData / "CorvaneConfig.xml", 100), "<installed/>");
    EXPECT_EQ(ReadFile(places.userData / "images" / "a.png", 100), "picture");
    EXPECT_EQ(ReadFile(places.userData / "Default.kal", 100), "my own default"); // never overwritten
}

} // namespace
} // namespace kaloria
