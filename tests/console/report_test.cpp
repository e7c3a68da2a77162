#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "console/console_program.h"
#include "console/document_file.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ReportFiles : public InScratchFolder {
 protected:
};

TEST_F(ReportFiles, TheEndOfTheNameTellsTheFormat) {
  const auto answers = Play({
      "rolls 40",
      "report summary " + Path("a.pdf"),
      "report summary \"" + Path("b.PDF") + "\"",
      "report advantage " + Path("c.svg"),
      "report results phantom all " + Path("d.txt"),
      "report frequencies 33 " + Path("e.txt"),
      "get RollFreqsListIndex",
      "report results " + Path("f.pdf"),
  });
  EXPECT_EQ(answers[1]["value"], 1);
  EXPECT_EQ(Bytes("a.pdf").substr(0, 5), "%PDF-");
  EXPECT_NE(Bytes("a.pdf").find("/CreationDate (20000101000000)"), std::string::npos);
  EXPECT_TRUE(Bytes("a.pdf") == Bytes("b.PDF"));
  EXPECT_EQ(answers[3]["value"], 3);
  EXPECT_THAT(Bytes("c.svg"), HasSubstr(">Feltmaster Payoffs and Advantage</text>"));
  EXPECT_THAT(Bytes("c-3.svg"), HasSubstr(">Page 3 of 3</text>"));
  EXPECT_THAT(Bytes("c.svg"), HasSubstr("viewBox=\"0 0 612 792\""));
  EXPECT_THAT(Bytes("c.svg"), Not(HasSubstr(".\"")));  // a number ends in a digit
  EXPECT_FALSE(fs::exists(Path("c-4.svg")));
  EXPECT_THAT(Bytes("d.txt"), HasSubstr("phantom $1 wagers for these 88 bets:"));
  EXPECT_THAT(Bytes("e.txt"), HasSubstr("Roll Frequencies for Any 7\n"));
  EXPECT_EQ(answers[6]["value"], 0);
  EXPECT_EQ(answers[7]["value"], 0);  // refused: no bet is selected
  EXPECT_EQ(answers[7]["messages"].size(), 1u);
  EXPECT_FALSE(fs::exists(Path("f.pdf")));
}

TEST_F(ReportFiles, QuestionsAreAskedWhereSomebodyAnswers) {
  const auto answers = Play({
      "answer no",
      "report trends " + Path("no.pdf"),
      "answer yes",
      "report trends " + Path("yes.pdf"),
      "report weather " + Path("x.pdf"),
      "report trends " + Path("x.doc"),
      "report trends",
      "report",
      "report trends " + Path("missing/x.pdf"),
  });
  EXPECT_EQ(answers[1]["value"], 0);
  EXPECT_EQ(answers[1]["messages"],
            json::parse(R"([{"title":"Print","text":"Confirm ready to print?",
                             "options":9222,"answer":7}])"));
  EXPECT_FALSE(fs::exists(Path("no.pdf")));
  EXPECT_EQ(answers[3]["value"], 1);
  EXPECT_TRUE(fs::exists(Path("yes.pdf")));
  for (std::size_t i = 4; i < answers.size(); ++i) {
    EXPECT_EQ(answers[i]["ok"], false);
    EXPECT_FALSE(answers[i].contains("value"));
  }
  EXPECT_THAT(answers[4]["error"].get<std::string>(), StartsWith("NAME \"weather\" is none of "));
  EXPECT_THAT(answers[5]["error"].get<std::string>(), HasSubstr("ends in none of .pdf, .svg"));
  EXPECT_THAT(answers[6]["error"].get<std::string>(), StartsWith("FILE"));
  EXPECT_THAT(answers[8]["error"].get<std::string>(), HasSubstr("No such file or directory"));
}

TEST_F(ReportFiles, FullPagesOfGraphsGoToTheDataFolder) {
  const auto answers =
      Play({"set GraphAutoPrint true", "hyper 1600", "report bankroll " + Path("now.txt"), "quit"},
           "--seed 3 --data-dir " + folder_.string());
  // The third page of 525 rolls is full at roll 1575; the rest is printed as the questions end.
  EXPECT_EQ(Bytes("report-1.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(Bytes("report-2.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(answers[2]["value"], 1);
  EXPECT_THAT(Bytes("now.txt"), HasSubstr("1,600 rolls @ "));
  EXPECT_FALSE(fs::exists(Path("report-3.pdf")));
}

TEST_F(ReportFiles, AWriteThatFailsKeepsTheOldFile) {
  const auto put = [&](const char* name) { std::ofstream(Path(name)) << "old"; };
  Document document;
  document.pages = {{TextLine{{{"new", 0, false}}}}, {TextLine{{{"second", 0, false}}}}};
  for (const char* name : {"a.pdf", "a.svg", "a.txt"}) put(name);

  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit tight = {2, usual.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &tight);
  for (const char* name : {"a.pdf", "a.svg", "a.txt"}) {
    EXPECT_TRUE(WriteDocument(document, Path(name)).has_value()) << name;
  }
  setrlimit(RLIMIT_FSIZE, &usual);
  std::signal(SIGXFSZ, handler);
  for (const char* name : {"a.pdf", "a.svg", "a.txt"}) EXPECT_EQ(Bytes(name), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 3);

  EXPECT_FALSE(WriteDocument(document, Path("a.txt")).has_value());
  EXPECT_EQ(Bytes("a.txt"), "new\n\fsecond\n");
  EXPECT_TRUE(WriteDocument(document, folder_.string() + "/").has_value());
}

TEST_F(ReportFiles, TheVerbPrintsASavedGame) {
  Play({"bet Field 5", "rolls 12", "save " + Path("evening.crp")});
  const ProgramRun text = RunProgram("report summary --game " + Path("evening.crp"));
  EXPECT_EQ(text.exit_code, 0) << text.complaints;
  EXPECT_THAT(text.output, StartsWith("Feltmaster Summary\n"));
  EXPECT_THAT(text.output, HasSubstr("Game file:  evening.crp\n"));
  const std::string results = "report results --seed 1 --bet Field --game " + Path("evening.crp");
  EXPECT_EQ(RunProgram(results + ' ' + Path("a.pdf")).exit_code, 0);
  EXPECT_EQ(RunProgram(results + ' ' + Path("b.pdf")).exit_code, 0);
  EXPECT_TRUE(Bytes("a.pdf") == Bytes("b.pdf"));
  EXPECT_EQ(RunProgram("report summary --game " + Path("none.crp")).exit_code, 2);
  EXPECT_EQ(RunProgram("report weather").exit_code, 2);
  EXPECT_EQ(RunProgram("report results --bet Moon").exit_code, 2);
  EXPECT_THAT(RunProgram("report summary x.doc").complaints, HasSubstr("x.doc"));
  EXPECT_THAT(RunProgram("report --help").output, HasSubstr("feltmaster report bankroll --game"));
}

}  // namespace
}  // namespace feltmaster
