#pragma once

/// The hosts and addresses this build talks to, in one place.
///
/// Every one is a default: the settings file overrides it by the key named beside it. Nothing here points at a
/// third party; services are looked for on this machine until a deployment says otherwise.
namespace Deployment
{

inline constexpr char const* remoteSyslogAddress = "127.0.0.1"; ///< logger/remoteSyslogIP
inline constexpr unsigned short remoteSyslogPort = 514;         ///< logger/remoteSyslogPort

inline constexpr char const* biscottiHost = "127.0.0.1";            ///< application/biscotti/host
inline constexpr unsigned short biscottiPort = 22473;               ///< application/biscotti/port
inline constexpr char const* keychainUrl = "http://127.0.0.1/keys"; ///< application/biscotti/keychainUrl

inline constexpr char const* serviceUrl = "http://127.0.0.1:22480"; ///< application/service/url
inline constexpr char versionSeparator = '_'; ///< Stands for the dots of a version in the addresses of the service.
inline constexpr unsigned short servicePort = 22480;    ///< Of the local services: directory and accounts.
inline constexpr unsigned short serviceTlsPort = 22443; ///< The same, encrypted.

inline constexpr char const* organisationDomain = "ombravision.invalid"; ///< Names the settings, reaches nothing.

} // namespace Deployment
