#pragma once

#include <string>
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

}  // namespace zlt::sim
