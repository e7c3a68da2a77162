#include "autobet/script_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>

#include "autobet/message.h"
#include "autobet/script_conversion.h"
#include "autobet/script_lines.h"
#include "autobet/script_record.h"
#include "autobet/script_text.h"
#include "base/number_format.h"
#include "base/record_file.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr double kVersion = 5.0;
constexpr std::size_t kTextLimit = 4 << 20;  // no script is longer than that

Record LineRecord(const ScriptLine& line) {
  Record record;
  record.SetText(kAtText, kLineTextSize, line.LineText);
  record.SetInt16(kAtKind, line.LineKind);
  record.SetInt32(kAtCode, line.LineCode);
  record.SetText(kAtName, kLineNameSize, line.LineName);
  record.SetMoney(kAtAmount, line.LineAmount);
  record.SetFloat(kAtSubject, static_cast<float>(line.LineSubject));
  record.SetInt16(kAtSubjectStack, line.LineSubjectStack);
  record.SetInt16(kAtReserved1, line.LineReserved1);
  record.SetFloat(kAtTarget, static_cast<float>(line.LineTarget));
  record.SetInt16(kAtTargetStack, line.LineTargetStack);
  record.SetInt16(kAtReserved2, line.LineReserved2);
  return record;
}

ScriptLine RecordedLine(const Record& record) {
  ScriptLine line;
  line.LineText = record.Text(kAtText, kLineTextSize);
  line.LineKind = record.Int16(kAtKind);
  line.LineCode = record.Int32(kAtCode);
  line.LineName = record.Text(kAtName, kLineNameSize);
  line.LineAmount = record.Money(kAtAmount);
  line.LineSubject = record.RoundedFloat(kAtSubject);
  line.LineSubjectStack = record.Int16(kAtSubjectStack);
  line.LineReserved1 = record.Int16(kAtReserved1);
  line.LineTarget = record.RoundedFloat(kAtTarget);
  line.LineTargetStack = record.Int16(kAtTargetStack);
  line.LineReserved2 = record.Int16(kAtReserved2);
  return line;
}

void Refuse(Game& game, const std::string& path, std::string_view reason) {
  std::string text = path;
  text += '\n';
  text += reason;
  Tell(game, "Unable to Open Auto-Bet File", std::move(text), kButtonOk | kPictureStop);
}

// The shortest decimal form that reads back as the same number.
std::string Shortest(double value) {
  char digits[32];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
  return std::string(digits, end);
}

// Whether the header is that of a script that this program can read. If not, tells why.
bool AcceptHeader(Game& game, const std::string& path, const Record& header) {
  const std::string title = header.Text(kAtText, kLineTextSize);
  const double version = ScriptVersion(header);
  if (!title.starts_with(kScriptTitle) || version < kVersion || std::isnan(version)) {
    Refuse(game, path, "has either been corrupted or is not a true Feltmaster Auto-Bet file.");
    return false;
  }
  if (version > kVersion) {
    Refuse(game, path, "requires Feltmaster version " + Shortest(version) + " or later to run.");
    return false;
  }
  return true;
}

// The lines of the file are pasted at the cursor and stand selected.
void PasteLines(Game& game, std::vector<ScriptLine> lines) {
  std::vector<ScriptLine>& script = game.ScriptLines;
  for (ScriptLine& line : script) line.LineSelected = false;
  for (ScriptLine& line : lines) line.LineSelected = true;
  RegisterNames(game, lines);
  const std::int64_t last = static_cast<std::int64_t>(script.size()) + 1;
  const std::int64_t cursor = std::clamp<std::int64_t>(game.ScriptCursorLine, 1, last);
  script.insert(script.begin() + (cursor - 1), std::make_move_iterator(lines.begin()),
                std::make_move_iterator(lines.end()));
  game.ScriptNeedsInit = true;
  game.ScriptUnsaved = true;
  ScriptLinesChanged(game);
}

// The lines stand in for the script; what the editor and the table know of the script stays.
void StandIn(Game& game, std::vector<ScriptLine> lines) {
  for (std::size_t i = 0; i < lines.size() && i < game.ScriptLines.size(); ++i) {
    lines[i].LineSelected = game.ScriptLines[i].LineSelected;
  }
  RegisterNames(game, lines);
  game.ScriptLines = std::move(lines);
  ScriptLinesChanged(game);
}

}  // namespace

void ClearScript(Game& game) {
  game.ScriptLines.clear();
  game.ScriptFlags.clear();
  game.ScriptLabels.clear();
  game.ScriptFileName.clear();
  game.ScriptUnsaved = false;
  game.ScriptCursorLine = 1;
  ScriptLinesChanged(game);
}

void SetScript(Game& game, std::vector<ScriptLine> lines, const std::string& file_name) {
  ClearScript(game);
  game.ScriptFileName = file_name;
  game.ScriptLines = std::move(lines);
  RegisterNames(game, game.ScriptLines);
  game.ScriptNeedsInit = true;
}

bool LoadScript(Game& game, const std::string& path) {
  const auto failed = [&](const FileError& error) {
    game.LastErrorText = error.At("Load Auto-Bet File");
    game.FileStatus = -1;
    return false;
  };
  RecordReader file;
  if (const std::optional<FileError> error = file.Open(path)) return failed(*error);
  Record record;
  if (!file.Read(record)) record = Record();
  if (const std::optional<FileError> error = file.Fault()) return failed(*error);
  game.FileStatus = 0;
  if (IsSiblingScript(record)) {
    std::string converted = path;
    return OfferConversion(game, converted) && LoadScript(game, converted);
  }
  if (!AcceptHeader(game, path, record)) return false;

  // The count is a promise; the file may hold less.
  const std::int64_t count = record.Money(kAtAmount).RoundWhole();
  std::vector<ScriptLine> lines;
  for (std::int64_t i = 0; i < count && file.Read(record); ++i) {
    lines.push_back(RecordedLine(record));
  }
  if (const std::optional<FileError> error = file.Fault()) return failed(*error);
  game.FileStatus = 1;
  if (game.ScriptFileMode) {
    PasteLines(game, std::move(lines));
  } else if (game.HotKeyRunning) {
    StandIn(game, std::move(lines));
  } else {
    SetScript(game, std::move(lines), path);
  }
  return true;
}

bool SaveScript(Game& game, const std::string& path) {
  std::string bytes(kRecordSize, '\0');
  std::int64_t count = 0;
  for (const ScriptLine& line : game.ScriptLines) {
    if (game.ScriptFileMode && !line.LineSelected) continue;
    bytes += LineRecord(line).Bytes();
    ++count;
  }
  bytes.replace(0, kRecordSize, ScriptHeader(count).Bytes());
  if (const std::optional<FileError> error = WriteFileAtomically(path, bytes)) {
    game.LastErrorText = error->At("Save Auto-Bet File");
    return false;
  }
  if (!game.ScriptFileMode && !game.HotKeyRunning) {
    game.ScriptFileName = path;
    game.ScriptUnsaved = false;
  }
  return true;
}

namespace {

// A file that promises more lines than it holds plays as far as it goes at the table. Where a
// strategy is to be judged that would be another strategy.
std::optional<std::string> CutShort(const Game& game, const std::string& path,
                                    const std::string& bytes) {
  Record header;
  std::copy_n(bytes.begin(), std::min(bytes.size(), kRecordSize), header.Data());
  const std::int64_t promised = header.Money(kAtAmount).RoundWhole();
  const auto held = static_cast<std::int64_t>(game.ScriptLines.size());
  if (promised <= held) return std::nullopt;
  return path + " is cut short: it promises " + std::to_string(promised) + " lines and holds " +
         std::to_string(held) + '.';
}

}  // namespace

std::optional<std::string> LoadScriptOrText(Game& game, const std::string& path) {
  std::string text;
  if (const std::optional<FileError> error = ReadWholeFile(path, kTextLimit, text)) {
    return path + " cannot be read: " + error->description + ".";
  }
  if (text.empty()) return path + " is empty.";
  if (LooksLikeScriptFile(text)) {
    game.MsgText.clear();
    game.LastErrorText.clear();
    const bool sibling = text.starts_with(kSiblingScriptTitle);
    if (LoadScript(game, path)) return sibling ? std::nullopt : CutShort(game, path, text);
    if (sibling) {
      return path +
             " is a script of Feltking; \"feltmaster script convert\" makes a copy that loads.";
    }
    return OneLine(game.LastErrorText.empty() ? game.MsgText : game.LastErrorText);
  }
  if (text.find('\0') != std::string::npos) {
    return path + " is neither an Auto-Bet file nor the text of a script.";
  }
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::string_view body = text;
  if (body.starts_with(kByteOrderMark)) body.remove_prefix(kByteOrderMark.size());
  auto script = ComposeScript(body);
  if (const auto* fault = std::get_if<ScriptTextFault>(&script)) {
    return path + ':' + std::to_string(fault->line) + ':' + std::to_string(fault->column) +
           ": expected " + fault->expected + '.';
  }
  auto& lines = std::get<std::vector<ScriptLine>>(script);
  if (lines.empty()) return path + " holds no line of a script.";
  SetScript(game, std::move(lines), std::string());
  return std::nullopt;
}

}  // namespace feltmaster
