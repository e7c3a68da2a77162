#include "desktop/setting_controls.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <cassert>

#include "base/text.h"
#include "desktop/number_field.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

bool IsKind(std::string_view control, std::string_view prefix) {
  return control.starts_with(prefix);
}
bool BearsItsCaption(std::string_view control) {
  return IsKind(control, "chk") || IsKind(control, "opt");
}

// The box or the options of a form may stand beside a unit.
QWidget* WithUnit(QWidget* field, const QString& unit) {
  auto* pair = new QWidget;
  auto* row = new QHBoxLayout(pair);
  row->setContentsMargins({});
  row->addWidget(field);
  row->addWidget(new QLabel(unit));
  row->addStretch();
  return pair;
}

}  // namespace

const SettingControl& SettingOfControl(std::string_view control) {
  for (const SettingTab& tab : SettingTabs()) {
    for (const SettingControl& setting : tab.controls) {
      if (setting.control == control) return setting;
    }
  }
  assert(false);
  static constexpr SettingControl kNone{};
  return kNone;
}

QGridLayout* OptionRows(QWidget* options) {
  return static_cast<QGridLayout*>(options->layout());
}

SettingControls::SettingControls(Game& game, std::function<void()> changed)
    : game_(game), changed_(std::move(changed)) {}

void SettingControls::Add(std::string_view control, QWidget* widget, std::function<void()> show) {
  const SettingControl& setting = SettingOfControl(control);
  widget->setObjectName(ToQt(control));
  widget->setAccessibleName(ToQt(Trim(setting.caption)));
  of_setting_[NameOfSetting(setting)] = widget;
  shows_.push_back(std::move(show));
}

void SettingControls::Write(std::string_view control, const std::string& value) {
  WriteSetting(game_, SettingOfControl(control), value);
  changed_();
}

void SettingControls::Show() {
  for (const auto& show : shows_) show();
}

QWidget* SettingControls::ControlOf(const std::string& setting) const {
  const auto found = of_setting_.find(setting);
  return found == of_setting_.end() ? nullptr : found->second;
}

QWidget* SettingControls::Make(std::string_view control) {
  const SettingControl& setting = SettingOfControl(control);
  if (IsKind(control, "chk")) return MakeBox(setting);
  if (IsKind(control, "opt")) return MakeOptions(setting);
  if (IsKind(control, "cmb")) return MakeList(setting);
  if (IsKind(control, "txt")) return MakeField(setting);
  auto* label = new QLabel;
  Add(control, label,
      [this, label, &setting] { label->setText(ToQt(ShownSetting(game_, setting))); });
  return label;
}

QWidget* SettingControls::MakeBox(const SettingControl& control) {
  auto* box = new QCheckBox(Verbatim(control.caption));
  Add(control.control, box,
      [this, box, &control] { box->setChecked(ChosenValue(game_, control) != 0); });
  QObject::connect(box, &QCheckBox::clicked, box,
                   [this, &control](bool on) { Write(control.control, on ? "1" : "0"); });
  return box;
}

QWidget* SettingControls::MakeOptions(const SettingControl& control) {
  auto* options = new QWidget;
  auto* rows = new QGridLayout(options);
  rows->setContentsMargins({});
  rows->setColumnStretch(2, 1);
  auto* group = new QButtonGroup(options);
  int next = 0;
  for (const std::string& choice : ChoicesOf(game_, control)) {
    auto* option = new QRadioButton(Verbatim(choice));
    const int index = next++;
    option->setObjectName(ToQt(control.control) + QString::number(index));
    group->addButton(option, index);
    rows->addWidget(option, index, 0);
  }
  Add(control.control, options, [this, group, &control] {
    QAbstractButton* chosen = group->button(static_cast<int>(ChosenValue(game_, control)));
    if (chosen != nullptr) chosen->setChecked(true);
  });
  QObject::connect(group, &QButtonGroup::idClicked, options,
                   [this, &control](int index) { Write(control.control, std::to_string(index)); });
  return options;
}

QWidget* SettingControls::MakeList(const SettingControl& control) {
  auto* list = new QComboBox;
  for (const std::string& choice : ChoicesOf(game_, control)) list->addItem(ToQt(choice));
  Add(control.control, list, [this, list, &control] {
    const int chosen = static_cast<int>(ChosenValue(game_, control));
    list->setCurrentIndex(chosen < list->count() ? chosen : 0);
  });
  QObject::connect(list, &QComboBox::activated, list,
                   [this, &control](int index) { Write(control.control, std::to_string(index)); });
  return list;
}

QWidget* SettingControls::MakeField(const SettingControl& control) {
  auto* field = new NumberField(NumberRuleOf(NameOfSetting(control)).value_or(NumberRule()));
  const auto show = [this, field, &control] { field->ShowNumber(FieldText(game_, control)); };
  Add(control.control, field, [this, field, show] {
    if (typed_into_ != field) show();
  });
  QObject::connect(field, &QLineEdit::textEdited, field, [this, field, &control] {
    typed_into_ = field;
    Write(control.control, field->Typed());
    typed_into_ = nullptr;
  });
  QObject::connect(field, &QLineEdit::editingFinished, field, show);
  return field;
}

QGroupBox* SettingControls::Group(const QString& title,
                                  std::initializer_list<std::string_view> controls) {
  auto* group = new QGroupBox(title);
  auto* form = new QFormLayout(group);
  for (const std::string_view control : controls) {
    QWidget* widget = Make(control);
    if (BearsItsCaption(control)) {
      form->addRow(widget);
      continue;
    }
    const SettingControl& setting = SettingOfControl(control);
    auto* caption = new QLabel(Verbatim(Trim(setting.caption)));
    caption->setBuddy(widget);
    const bool percent = ShownSetting(game_, setting).ends_with(" %");
    form->addRow(caption, percent ? WithUnit(widget, QStringLiteral("%")) : widget);
  }
  return group;
}

}  // namespace feltmaster
