#include <QMessageBox>

#include "desktop/file_window.h"
#include "desktop/message_dialog.h"
#include "desktop/qt_text.h"
#include "desktop/settle_dialog.h"
#include "desktop/step_dialog.h"

namespace feltmaster {
MessageReply ShowMessageDialog(QWidget* parent, Game&, const MessageRequest& request) {
  QMessageBox::information(parent, ToQt(request.title), ToQt(request.text));
  return {};
}
void ShowNoticeWindow(QWidget*, std::string_view, std::string_view) {}
SettleReply ShowSettleDialog(QWidget*, Game&, const SettleRequest& request) {
  return {.button = request.default_button, .options = {}};
}
bool ShowStepDialog(QWidget*, Game&, const StepRequest&,
                    const std::function<void(WindowCommand)>&) {
  return false;
}
std::string AskFileName(QWidget*, Game&, const FileRequest&) {
  return {};
}
}  // namespace feltmaster
