// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/job_file.h"
#include "tests/support/temporary_folder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <stdexcept>
#include <sys/stat.h>

namespace kaloria {
namespace {

using test::Slurp;
using test::Spill;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string defaultJob = KALORIA_RESOURCES_DIR "/Default.kal";

const Catalogue& Shipped() {
    static const Catalogue catalogue = [] {
        Catalogue filled;
        if (LoadConfiguration(KALORIA_RESOURCES_DIR "/CorvaneConfig.xml", filled)) {
            throw std::runtime_error("the supplied reference data cannot be read");
        }
        return filled;
    }();
    return catalogue;
}

std::vector<std::string> Rows(const Job& job) {
    const auto text = [](const JobMaterial& m) {
        return fmt::format("{} {}{}", m.id, m.name, m.missing ? " (missing)" : "");
    };
    std::vector<std::string> rows{text(job.baseMetal)};
    for (const JobLayer& layer : job.layers) {
        rows.push_back(
            fmt::format("{}|{}|{}|{}", layer.layer, text(layer.material), layer.locked, layer.thickness));
    }
    rows.push_back(text(job.jacket));
    return rows;
}

TEST(JobFile, SuppliedJobReadsAndWritesTheSameBytes) {
    Job job;
    const JobLoad load = LoadJob(defaultJob, Shipped(), job);
    ASSERT_EQ(load.kind, JobLoad::Kind::done) << load.problem.text;
    EXPECT_EQ(JobText(job, Shipped()), Slurp(defaultJob));
    EXPECT_THAT(CheckJob(defaultJob, Shipped()), ElementsAre());
    EXPECT_EQ(job[Field::ProcessTemp], "350");
    EXPECT_EQ(job.moisture, Field::RelativeHumidity);
    EXPECT_THAT(Rows(job), ElementsAre("1 Carbon Steel", "1|9 Mineral Wool Pipe Insulation 1200 F|Vary|",
                                       "2 Aluminum Oxidized In Service"));
}

TEST(JobFile, EveryFieldSurvivesARoundTrip) {
    const TemporaryFolder folder;
    const auto path = folder / "case.kal";
    Job job;
    int number = 0;
    for (const JobField& field : JobFields()) {
        ++number;
        if (field.kind == FieldKind::flag) {
            job[field.id] = number % 3 == 0 ? "True" : "False";
        } else if (field.kind != FieldKind::material && field.id != Field::Units) {
            job[field.id] = fmt::format(" {} <&>\"' ]]> \xC2\xB0\nline two\t", number);
        }
    }
    job[Field::Units] = "SI";
    job[Field::Contact] = "";
    job[Field::Engineer] = "  ";
    job.moisture = Field::DewPoint;
    job.baseMetal = {3, "Copper", false};
    const JobMaterial wool{9, "Mineral Wool Pipe Insulation 1200 F", false};
    const JobMaterial gone{5000, "ID 5000", true};
    job.layers.clear();
    job.layers.push_back({wool, "1", "Vary", "1.5"});
    job.layers.push_back({gone, "2", "Fix", "2 \"<"});
    job.layers.push_back({wool, "3", "Vary", ""});
    job.jacket = {4711, "ID 4711", true};
    Spill(path, "old");
    ::chmod(path.c_str(), 0444);
    SaveJob(path, job, Shipped());

    Job reopened;
    const JobLoad load = LoadJob(path, Shipped(), reopened);
    ASSERT_EQ(load.kind, JobLoad::Kind::done) << load.problem.text;
    for (const JobField& field : JobFields()) {
        EXPECT_EQ(reopened[field.id], job[field.id]) << field.element;
    }
    EXPECT_EQ(reopened.moisture, Field::DewPoint);
    EXPECT_EQ(Rows(reopened), Rows(job)) << "missing materials keep their rows and IDs";
    EXPECT_EQ(JobText(reopened, Shipped()), Slurp(path)) << "saving twice gives the same bytes";
}

TEST(JobFile, WritesTheIdOfTheNameShownAndOnlyTextThatCanBeRead) {
    Job job;
    job.baseMetal = {999, "Copper", false};
    job[Field::UserName] = std::string("\x01 J\xFFrg\0", 7);
    EXPECT_THAT(JobText(job, Shipped()), HasSubstr("<BaseMetal>3</BaseMetal>"));
    Job reopened;
    EXPECT_EQ(LoadJobText(JobText(job, Shipped()), Shipped(), reopened).kind, JobLoad::Kind::done);
    EXPECT_EQ(reopened[Field::UserName], " J\xEF\xBF\xBDrg");
    EXPECT_THROW(SaveJob("/nowhere/case.kal", job, Shipped()), FileError);
}

TEST(JobFile, OpensOrRefusesWhatItIsGiven) {
    using Kind = JobLoad::Kind;
    const std::string temp = "<ProcessTemp>\n200</ProcessTemp>";
    std::string deep;
    for (int i = 0; i < 3'300'000; ++i) {
        deep += "<a>";
    }
    std::string six;
    for (int i = 0; i < 6; ++i) {
        six += "<Insulation>9</Insulation>\n";
    }
    struct Row {
        const char* why;
        std::string bytes;
        Kind kind;
        int line;
        const char* processTemp; ///< afterwards; "x" when untouched
    };
    const Row rows[] = {
        {"empty", "", Kind::failed, 1, "x"},
        {"not XML", "hello", Kind::failed, 1, "x"},
        {"truncated", "<Job Version='4'>" + temp + "<WindSpeed>", Kind::failed, 2, "x"},
        {"10 MB of nesting", deep, Kind::failed, 1, "x"},
        {"UTF-16", std::string("\xFE\xFF\0<", 4), Kind::failed, 1, "x"},
        {"version 4.0", "<Job Version='4.0'>" + temp + "</Job>", Kind::wrongVersion, 1, "x"},
        {"version with a blank", "<Job Version=' 4'>" + temp + "</Job>", Kind::wrongVersion, 1, "x"},
        {"no version", "<Job>" + temp + "</Job>", Kind::wrongVersion, 1, "x"},
        {"declaration first", "<?xml version='1.0' Version='4'?>\n<Job Version='4'>" + temp + "</Job>",
         Kind::wrongVersion, 1, "x"},
        {"byte order mark", "\xEF\xBB\xBF<Job Version='4'>" + temp + "</Job>", Kind::done, 0, "\n200"},
        {"comments, instructions and unknown elements",
         "<Job Version='4'><!-- c "
         "--><?p?><DryBulbTemperature>1</DryBulbTemperature><processtemp>1</processtemp>"
         "<ProcessTemp>2<!-- c -->0&#48;</ProcessTemp></Job>",
         Kind::done, 0, "200"},
        {"the last of two counts",
         "<Job Version='4'><ProcessTemp>1</ProcessTemp><ProcessTemp>2</ProcessTemp></Job>", Kind::done, 0,
         "2"},
        {"a prefix is not part of the local name",
         "<k:Job xmlns:k='u' Version='4'><k:ProcessTemp>7</k:ProcessTemp></k:Job>", Kind::done, 0, "7"},
        {"any text is taken: checking comes later",
         "<Job Version='4'><ProcessTemp>1,5 NaN</ProcessTemp></Job>", Kind::done, 0, "1,5 NaN"},
        {"an ID that is no number keeps what came before",
         "<Job Version='4'><ProcessTemp>9</ProcessTemp>\n<Jacket>tin</Jacket><WindSpeed>3</WindSpeed></Job>",
         Kind::failed, 2, "9"},
        {"a sixth layer", "<Job Version='4'>" + six + temp + "</Job>", Kind::failed, 6, "x"},
    };
    const std::string untouched = "x";
    for (const Row& row : rows) {
        Job job;
        job[Field::ProcessTemp] = untouched;
        const JobLoad load = LoadJobText(row.bytes, Shipped(), job);
        EXPECT_EQ(static_cast<int>(load.kind), static_cast<int>(row.kind))
            << row.why << ": " << load.problem.text;
        EXPECT_EQ(load.problem.line, row.line) << row.why << ": " << load.problem.text;
        EXPECT_EQ(job[Field::ProcessTemp], row.processTemp) << row.why;
        EXPECT_LE(job.layers.size(), mostLayers) << row.why;
    }
    Job job;
    EXPECT_EQ(LoadJob("/nowhere/case.kal", Shipped(), job).kind, Kind::notFound);
    EXPECT_EQ(LoadJob("/", Shipped(), job).kind, Kind::failed);
}

TEST(JobFile, FieldsThatAFileLacksStayAndOddTextsAreNormalised) {
    Job job;
    job[Field::AmbientTemp] = "71";
    job[Field::FEA] = "True";
    job.moisture = Field::WetBulbTemperature;
    const JobLoad load =
        LoadJobText("<Job Version='4'><Units>si</Units><FEA>true</FEA>"
                    "<DewPoint Selected='TRUE'>55</DewPoint><Insulation Locked='Fix'>10</Insulation>"
                    "</Job>",
                    Shipped(), job);
    EXPECT_EQ(load.kind, JobLoad::Kind::done);
    EXPECT_EQ(job[Field::AmbientTemp], "71");
    EXPECT_EQ(job[Field::Units], "English");
    EXPECT_EQ(job[Field::FEA], "False");
    EXPECT_EQ(job.moisture, Field::WetBulbTemperature);
    ASSERT_EQ(job.layers.size(), 1U);
    EXPECT_EQ(job.layers.front().locked, "Fix");
}

TEST(CheckJob, NamesEverythingWithItsLine) {
    std::string bytes = Slurp(defaultJob);
    const auto change = [&bytes](std::string_view from, std::string_view to) {
        const auto at = bytes.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        bytes.replace(at, from.size(), to);
    };
    change("<Job Version=\"4\">", "<Job Version=\"5\">");
    change("<ProcessTemp>350<", "<ProcessTemp>35O<");
    change("<AmbientTemp>75<", "<AmbientTemp>75000<");
    change("\t<WindSpeed>2</WindSpeed>\n", "\t<Windspeed>2</Windspeed>\n");
    change("<PipeSize>6<", "<PipeSize>6.2<");
    change("<RelativeHumidity Selected=\"True\">", "<RelativeHumidity Selected=\"true\">");
    change("<BaseMetal>1<", "<BaseMetal>x<");
    change("<Insulation Layer=\"1\" Locked=\"Vary\" Thickness=\"\">9<",
           "<Insulation Layer=\"1\" Locked=\"Fix\" Thickness=\"\">900<");
    change("<Fuel>Natural Gas<", "<Fuel>Peat<");
    change("<PrintReport>False</PrintReport>",
           "<PrintReport>no</PrintReport><PrintReport>True</PrintReport>");
    std::vector<std::string> found;
    for (const FileProblem& problem : CheckJobText(bytes, Shipped())) {
        found.push_back(fmt::format("{}: {}", problem.line, problem.text));
    }
    EXPECT_THAT(
        found, ElementsAre(
                   HasSubstr("1: Version is \"5\" instead of \"4\""), "1: <WindSpeed> is missing",
                   HasSubstr("1: 0 of WetBulbTemperature"),
                   HasSubstr("12: ProcessTemp: \"35O\" is not a number"), HasSubstr("13: AmbientTemp: 75000"),
                   "14: unknown element <Windspeed>", "15: PipeSize: \"6.2\" is not in the reference data",
                   HasSubstr("22: RelativeHumidity: the attribute Selected"), "25: BaseMetal: \"x\" is no ID",
                   "26: Insulation: ID 900 is not in the reference data",
                   "26: Insulation: \"\" is no thickness", "28: Fuel: \"Peat\" is not in the reference data",
                   "34: PrintReport: \"no\" is neither \"True\" nor \"False\"",
                   "34: <PrintReport> stands in the file more than once: the last one counts"));
}

} // namespace
} // namespace kaloria
