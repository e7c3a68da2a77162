#pragma once

#include <deque>
#include <string>
#include <vector>

#include "surface/null_surface.h"

namespace feltmaster {

// A player who answers dialogs from a list and keeps what was asked. With no answer left he presses
// OK and leaves the fields as they open.
class AnsweringSurface : public NullSurface {
 public:
  struct Dialog {
    std::string title;
    std::string text;
    std::string input_default;
    std::int32_t input_length = 0;
  };

  bool TableMinimised() override { return false; }
  MessageReply ShowMessage(const MessageRequest& request) override {
    dialogs.push_back({std::string(request.title), std::string(request.text),
                       std::string(request.input_default), request.input_length});
    MessageReply reply;
    reply.input1 = std::string(request.input_default);
    if (!replies.empty()) {
      reply = replies.front();
      replies.pop_front();
    }
    return reply;
  }
  double PlainUniform() override { return plain; }

  void Type(const std::string& text) { replies.push_back({1, text, "", false}); }
  void Answer(std::int32_t answer) { replies.push_back({answer, "", "", false}); }

  std::deque<MessageReply> replies;
  std::vector<Dialog> dialogs;
  double plain = 0;
};

}  // namespace feltmaster
