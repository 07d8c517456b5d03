#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace zlt::sim {

/// A symbolic link that goes away with the object. An older link of that name is replaced, a file
/// is not. Throws std::system_error.
class PortLink {
 public:
    explicit PortLink(std::string name) : m_name(std::move(name)) {}
    ~PortLink();
    PortLink(PortLink&& other) noexcept;
    PortLink& operator=(PortLink&&) = delete;

    void pointTo(const std::string& target);
    /// Takes the link away, unless somebody else has pointed it elsewhere in the meantime.
    void remove();

 private:
    std::string m_name;
    std::string m_target;
};

/// A pseudo-terminal whose client side passes for a serial port. The program keeps the client side
/// open itself, so that clients may come and go; who opens and closes it is watched, so that what
/// one client left unread, or its exclusive claim after a crash, does not reach the next one.
class PseudoTerminal {
 public:
    PseudoTerminal() = default;
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Makes the pair, raw and at the given rate. Throws std::system_error.
    void open(long baud);
    /// Closes both sides: to the client this is an adapter that was pulled out.
    void hangUp();

    [[nodiscard]] bool isOpen() const { return m_master >= 0; }
    [[nodiscard]] const std::string& path() const { return m_path; }
    /// To be polled for reading: the bytes, and the comings and goings.
    [[nodiscard]] int master() const { return m_master; }
    [[nodiscard]] int watch() const { return m_watch; }

    /// What the client has written; empty when there is nothing.
    std::string read();
    /// Writes what fits. What the client does not take is lost, as on a wire.
    void write(std::string_view bytes);
    /// The rate the client has set.
    [[nodiscard]] long baud() const;
    /// Takes note of comings and goings; true when a client came to an idle port or the last left.
    bool clientChanged();
    [[nodiscard]] bool hasClient() const { return m_clients > 0 || m_presumed; }
    /// Two openings at once may be reported as one; bytes from a port that seems idle give that
    /// away, and somebody is taken to be there until the next coming or going.
    void presumeClient() { m_presumed = true; }

 private:
    void forgetClient();

    int m_master = -1;
    int m_slave = -1;
    int m_watch = -1;
    int m_clients = 0;
    bool m_presumed = false;
    std::string m_path;
};

}  // namespace zlt::sim
