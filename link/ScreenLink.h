#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "link/BusTalk.h"
#include "link/DeviceNotes.h"
#include "link/Exchange.h"
#include "link/Flavour.h"
#include "link/Services.h"
#include "link/Values.h"

namespace zlt {

/// Is told what becomes of a screen's link, to show it.
class LinkListener {
 public:
    virtual ~LinkListener() = default;

    /// The connected flag has a new value.
    virtual void commChanged(bool connected) = 0;
    /// An exchange ran out of time; the flag is clear already.
    virtual void exchangeTimedOut() = 0;
    /// The port is gone; both flags are clear already.
    virtual void portLost() = 0;
    /// A reply came, Latin-1, as SendReceive() is about to return it.
    virtual void replied(std::string_view /*command*/, std::string_view /*reply*/) {}
};

/// A conversation past the exchange, for texts that the operator typed: the reply is handed on
/// as it comes, header and all.
struct RawRequest {
    std::string_view deviceId;  ///< as it stands
    std::string_view command;
    bool readsReply = true;  ///< no controller answers a broadcast
    int emptyReadsAllowed = 100;
    bool tellsLoss = true;  ///< a lost port takes the flavour's path, or else only ends it
    std::function<void()> written = {};        ///< the request is out
    std::function<void()> settled = {};        ///< the settling wait is over
    std::function<void(char)> character = {};  ///< one of the reply, without its end mark
};

/// What the main screen hands to another screen that talks to the controller.
struct LinkHandOver {
    bool PortReady = false;
    bool CommOK = false;
    Connection connection;
    FirmwareVersion firmware;
    std::shared_ptr<DeviceNotes> notes = std::make_shared<DeviceNotes>();
};

/// One screen's link to its controller: the port it owns, the two flags and the exchange.
class ScreenLink {
 public:
    /// `listener` may be null. `flavour` and `services` outlive the link.
    ScreenLink(const Services& services, const Flavour& flavour, LinkListener* listener);

    /// Sends one command to the addressed controller and returns its reply without header and
    /// carriage return, or "0" when there was none. Blocks until the exchange is over. Never
    /// throws but by ending the program, where the flavour says so, and what the listener throws.
    std::string SendReceive(std::string_view command);

    /// Sends several commands right after one another; what failed is told once all are out.
    void sendAll(const std::vector<std::string>& commands);

    /// Drops what has arrived: late answers to what has been given up.
    void dropInput() { m_talk.dropInput(); }
    /// Reads one more line as the reply to `command`, which has been written, after one that was
    /// the late answer to another command. Everything else as SendReceive().
    std::string receive(std::string_view command);

    /// Holds one raw conversation, with the terminals' settling waits. No flag guards it, and a
    /// time-out changes none. Blocks until it is over.
    Ending converse(const RawRequest& request);

    /// Sends "ABORT" to the controller as a raw conversation: whatever the flags say, and without
    /// a message unless the port is lost.
    Ending abort() {
        const AskedBy operatorsAct(busLog(), Asker::screen);  // under a message of a refresh, too
        return converse({.deviceId = connection.deviceId, .command = "ABORT"});
    }

    /// Takes connection and flags over from the main screen; tells the listener.
    void takeOver(const LinkHandOver& handOver);
    /// Opens the port where the main screen's was open. PortReady says whether it is open then.
    void openHandedOverPort();

    /// Opens the port with the connection's number and baud rate. False when that fails; the
    /// flags are the caller's to set.
    bool openPort();
    void closePort() { MSComm1->close(); }

    /// Whether a tool that looks the connection's port number up by itself comes to this
    /// controller.
    [[nodiscard]] bool numberStillMeant() const {
        return MSComm1->numberStillMeant(connection.port);
    }

    /// What is not as it was asked for on the open port, a sentence; often empty.
    [[nodiscard]] std::string portRemark() const { return MSComm1->remark(); }
    /// The device that stands behind the port, or stood there when it was open last.
    [[nodiscard]] std::string portDevice() const { return MSComm1->device(); }
    /// What the last exchange's reply said of the line.
    [[nodiscard]] LineFault lineFault() const { return m_lineFault; }

    /// Closes the port and ends the program. Does not return.
    [[noreturn]] void endProgram(int exitCode);

    /// Whether the loss of the port has been told: nothing is asked any more then.
    [[nodiscard]] bool lossReported() const { return m_lossReported; }

    /// Whether this screen has its port open.
    [[nodiscard]] bool PortReady() const { return m_portReady; }
    void setPortReady(bool ready) { m_portReady = ready; }
    [[nodiscard]] bool CommOK() const { return m_commOk; }
    /// Sets the connected flag and tells the listener.
    void setCommOK(bool connected);

    Connection connection;
    /// What the screens of one run know of the controllers; never null.
    std::shared_ptr<DeviceNotes> notes = std::make_shared<DeviceNotes>();
    /// Where the exchanges of this run are kept.
    [[nodiscard]] BusLog& busLog() const { return *m_services.busLog; }

 private:
    struct Exchanged {
        std::string reply;
        const Reaction* failure = nullptr;  ///< nothing when there is a reply
        Ending ending = Ending::reply;
    };
    Exchanged exchange(std::string_view command);
    Exchanged read(std::string_view command);
    std::string told(const Exchanged& exchanged, std::string_view command);
    std::string fail(const Reaction& reaction, std::string_view command, Ending ending);

    const Services& m_services;
    const Flavour& m_flavour;
    LinkListener* m_listener;
    std::unique_ptr<Port> MSComm1;
    BusTalk m_talk;
    bool m_portReady = false;
    bool m_commOk = false;
    bool m_lossReported = false;
    LineFault m_lineFault = LineFault::none;
};

}  // namespace zlt
