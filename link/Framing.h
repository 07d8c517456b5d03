#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zlt {

/// Ends every request and every reply.
inline constexpr char carriageReturn = '\r';
/// Begins every controller's device name, "ZLD01" say.
inline constexpr std::string_view deviceNamePrefix = "ZLD";

/// One request line as it goes on the bus: "@", the two-digit device ID ("00" for all
/// controllers), the command as it stands, carriage return.
std::string frameRequest(std::string_view deviceId, std::string_view command);

/// A reply line without its header: one that begins with "#" loses that and the two
/// characters behind it, any other is returned whole.
std::string_view ReplyHeaderStrip(std::string_view line);

/// What stands behind the prefix in a "DN" reply, `count` characters at the most: the two
/// digits of the device ID in a proper name. Whatever the reply is, it is not judged.
std::string_view behindDeviceNamePrefix(std::string_view reply, std::size_t count);

/// The two digits of the device ID in a "DN" reply; nothing for one that is no controller's name.
std::optional<std::string_view> deviceIdOfName(std::string_view reply);

/// Whether a "DN" reply is the name of one of our controllers.
bool isDeviceName(std::string_view reply);

}  // namespace zlt
