#pragma once

/// Names that the interface's documents share.
namespace ApiNames
{

inline constexpr char const* envelope = "http://schemas.xmlsoap.org/soap/envelope/";
inline constexpr char const* schema = "http://www.w3.org/2001/XMLSchema";
inline constexpr char const* wsdl = "http://schemas.xmlsoap.org/wsdl/";
inline constexpr char const* wsdlSoap = "http://schemas.xmlsoap.org/wsdl/soap/";
inline constexpr char const* transport = "http://schemas.xmlsoap.org/soap/http";
inline constexpr char const* own = "urn:ombravision:client-api"; ///< Of our types.

inline constexpr char const* path = "/client/api";

/// Said of an envelope of another version.
inline constexpr char const* otherVersion = "Only SOAP 1.1 is spoken here.";

} // namespace ApiNames
