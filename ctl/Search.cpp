#include "ctl/Context.h"
#include "link/DeviceSearch.h"
#include "platform/Text.h"

namespace zlt::ctl {
namespace {

/// One port in place of all: the search finds it as its first.
class OnlyPort final : public Port {
 public:
    OnlyPort(Port& port, PortNumber number) : m_port(port), m_number(number) {}

    bool open(PortNumber number, std::string_view baudRate) override {
        return number == PortNumber{1} && m_port.open(m_number, baudRate);
    }
    void close() override { m_port.close(); }
    [[nodiscard]] bool isOpen() const override { return m_port.isOpen(); }
    bool write(std::string_view bytes) override { return m_port.write(bytes); }
    PortInput read(char& character) override { return m_port.read(character); }
    PortInput waitForInput(std::chrono::milliseconds time) override {
        return m_port.waitForInput(time);
    }
    [[nodiscard]] std::string errorText() const override { return m_port.errorText(); }

 private:
    Port& m_port;
    PortNumber m_number;
};

class SearchProgress final : public SearchView {
 public:
    explicit SearchProgress(Output& output) : m_output(output) {}

    void showText(std::string_view text) override {
        m_output.progress(std::string(text) + "  " + std::to_string(m_percent) + " %");
    }
    void showProgress(int value, int maximum) override {
        m_percent = maximum > 0 ? value * 100 / maximum : 0;
    }
    void showResults(std::string_view) override {}

 private:
    Output& m_output;
    int m_percent = 0;
};

void showDevice(Output& output, const std::string& port, const Connection& device) {
    if (output.style.json)
        output.line(JsonObject()
                        .add("port", port)
                        .add("baud", device.baudRate)
                        .add("id", device.deviceId)
                        .text());
    else
        output.line(port + " " + device.baudRate + " " + device.deviceId);
}

}  // namespace

void searchDevices(Context& context) {
    Output& output = context.output;
    const Target& target = context.session.target();
    const bool one = context.arguments.has("port");
    const auto real = context.services.makePort();
    OnlyPort only(*real, target.connection.port);
    SearchProgress progress(output);
    DeviceSearch search(one ? only : *real, *context.services.busLog,
                        context.arguments.has("all") ? SearchMode::all : SearchMode::firstFound,
                        progress);
    std::size_t shown = 0;
    DeviceSearch::State state = DeviceSearch::State::running;
    while (state == DeviceSearch::State::running) {
        context.heed.check();
        state = search.step();
        for (; shown < search.answered().size(); ++shown) {
            const Connection& device = search.answered()[shown];
            output.progress({});
            showDevice(output, one ? target.portName : portText(device.port), device);
        }
    }
    output.progress({});
    if (state == DeviceSearch::State::noPort && !one)
        throw Failure(ExitCode::port, "No Port Available!");
    if (state == DeviceSearch::State::noPort)
        context.session.open();  // tells why
    if (!search.losses().empty() && one)
        throw Failure(ExitCode::port,
                      "The port " + target.portName + " is lost: " + real->errorText() + ".");
    if (!search.losses().empty())
        throw Failure(ExitCode::port, search.losses());
    if (shown == 0)
        throw Failure(ExitCode::noReply, "No device found!");
}

}  // namespace zlt::ctl
