#include "SetupWorld.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

namespace zlt::test {

SetupWorld::SetupWorld() {
    bus.replies = {{"DN", "ZLD42"}, {"CURR", "800"}, {"CURI", "300"}, {"MS", "16"},
                   {"POL", "5"},    {"DL", "1"},     {"SLOAD", "3"},  {"LCA", "10"},
                   {"HCA", "20"},   {"DOBOOT", "6"}, {"DB", "3"},     {"RT", "1"}};
}

void SetupWorld::open(int firmware) {
    handOver.firmware = {firmware};
    form = std::make_unique<SetupParameters>(services, handOver, nullptr);
    form->Form_Load();
    form->show();
}

void SetupWorld::openRead(int firmware) {
    open(firmware);
    bus.takeCommands();
}

Commands SetupWorld::commandsOf(const char* button) {
    click(*form, button);
    return bus.takeCommands();
}

void SetupWorld::type(const char* name, const char* utf8) {
    auto& widget = control<QWidget>(*form, name);
    auto* box = qobject_cast<QComboBox*>(&widget);
    auto* field = box ? box->lineEdit() : qobject_cast<QLineEdit*>(&widget);
    field->setFocus();
    field->setText(QString::fromUtf8(utf8));
    control<QWidget>(*form, "Close").setFocus();  // leaving the field must change nothing
}

bool SetupWorld::checked(const char* name) {
    return control<QAbstractButton>(*form, name).isChecked();
}

bool SetupWorld::enabled(const char* name) {
    return control<QWidget>(*form, name).isEnabled();
}

ChangeMark::State SetupWorld::mark(const char* name) {
    return control<ChangeMark>(*form, (std::string(name) + "Mark").c_str()).state();
}

void SetupWorld::silence(const std::string& command) {
    bus.answer = [this, command](const std::string& request) -> std::optional<std::string> {
        const std::string sent = request.substr(3);
        if (sent == command)
            return std::nullopt;
        const auto reply = bus.replies.find(sent);
        return reply == bus.replies.end() ? "OK" : reply->second;
    };
}

}  // namespace zlt::test
