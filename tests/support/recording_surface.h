#pragma once

#include <cstdint>
#include <deque>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "surface/null_surface.h"

namespace feltmaster {

// A table with somebody at it who writes everything down: the messages, settle and file dialogs
// that came up, the sounds, the changes of the picture. Answers are taken from queues; with an
// empty queue a message is answered OK, a settle dialog by its default button, and no file is
// chosen.
class RecordingSurface : public NullSurface {
 public:
  struct Message {
    std::string title;
    std::string text;
    std::int32_t options = 0;
    std::int32_t help = 0;

    bool operator==(const Message&) const = default;
  };
  friend void PrintTo(const Message& message, std::ostream* out) {
    *out << '[' << message.title << "] " << message.text << " (" << message.options << ", "
         << message.help << ')';
  }
  struct Sound {
    std::string file;
    bool wait = false;

    bool operator==(const Sound&) const = default;
  };

  bool TableMinimised() override { return false; }
  MessageReply ShowMessage(const MessageRequest& request) override {
    messages.push_back(
        {std::string(request.title), std::string(request.text), request.options, request.help});
    if (answers.empty()) return {};
    MessageReply reply = answers.front();
    answers.pop_front();
    return reply;
  }
  SettleReply ShowSettle(const SettleRequest& request) override {
    settle_titles.emplace_back(request.title);
    settles.push_back(request);
    settles.back().title = {};  // a view of the caller's
    if (settle_replies.empty()) return NullSurface::ShowSettle(request);
    SettleReply reply = settle_replies.front();
    settle_replies.pop_front();
    return reply;
  }
  std::string AskFile(const FileRequest& request) override {
    asked.push_back(std::string(request.caption) + ' ' + std::string(request.pattern));
    if (files.empty()) return {};
    std::string file = files.front();
    files.pop_front();
    return file;
  }
  void PlaySound(std::string_view file, bool wait) override {
    sounds.push_back({std::string(file), wait});
  }
  void TableChanged(std::uint32_t what) override {
    changed |= what;
    ++change_calls;
  }
  void RefreshOpenScreens() override { ++refreshes; }

  void Answer(std::int32_t answer) { answers.push_back({answer, "", "", false}); }
  void Type(const std::string& input1, const std::string& input2 = {}) {
    MessageReply reply;
    reply.input1 = input1;
    reply.input2 = input2;
    answers.push_back(reply);
  }

  std::vector<Message> messages;
  std::vector<std::string> settle_titles;
  std::vector<SettleRequest> settles;
  std::vector<Sound> sounds;
  std::uint32_t changed = 0;  // the set of TableChange so far
  int change_calls = 0;
  int refreshes = 0;
  std::deque<MessageReply> answers;
  std::deque<SettleReply> settle_replies;
  std::deque<std::string> files;   // the names to be chosen
  std::vector<std::string> asked;  // the file dialogs' captions and patterns
};

}  // namespace feltmaster
