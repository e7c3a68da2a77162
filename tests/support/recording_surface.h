#pragma once

#include <cstdint>
#include <deque>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "surface/null_surface.h"

namespace feltmaster {

// A table with somebody at it who writes everything down: the messages and settle dialogs that came
// up, the sounds, the changes of the picture. Answers are taken from queues; with an empty queue a
// message is answered OK and a settle dialog by its default button.
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
  void PlaySound(std::string_view file, bool wait) override {
    sounds.push_back({std::string(file), wait});
  }
  void TableChanged(std::uint32_t what) override {
    changed |= what;
    ++change_calls;
  }
  void RefreshOpenScreens() override { ++refreshes; }

  void Answer(std::int32_t answer) {
    MessageReply reply;
    reply.answer = answer;
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
};

}  // namespace feltmaster
