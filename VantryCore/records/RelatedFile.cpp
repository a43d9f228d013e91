#include "VantryCore/records/RelatedFile.h"

#include <algorithm>
#include <filesystem>

#include <arpa/inet.h>
#include <netinet/in.h>

namespace vantry {

static_assert(listsEveryMember<RelatedFile>());

namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// unreserved and sub-delims of RFC 3986, sections 2.2 and 2.3.
bool isPlain(char c) {
    return isLetter(c) || isDigit(c) || std::string_view("-._~!$&'()*+,;=").find(c) != std::string_view::npos;
}

/// Appends `part`, percent-encoding what is neither plain nor in `alsoAllowed`. A "%" stays if it begins an
/// encoded byte.
void appendEncoded(std::string& out, std::string_view part, std::string_view alsoAllowed) {
    constexpr char digits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < part.size(); ++i) {
        const char c = part[i];
        const bool encoded =
            c == '%' && i + 2 < part.size() && isHexDigit(part[i + 1]) && isHexDigit(part[i + 2]);
        if (isPlain(c) || encoded || alsoAllowed.find(c) != std::string_view::npos) {
            out += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        out += '%';
        out += digits[byte >> 4];
        out += digits[byte & 0xF];
    }
}

std::string lowerCase(std::string_view ascii) {
    std::string lower(ascii);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char c) {
        return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    });
}

/// The text in brackets of an IP-literal (RFC 3986, section 3.2.2): an IPv6 address or a later version.
bool isIPLiteral(std::string_view inside) {
    if (inside.empty())
        return false;
    if (inside.front() == 'v' || inside.front() == 'V') {
        const std::size_t dot = inside.find('.');
        if (dot == std::string_view::npos || dot < 2 || dot + 1 == inside.size())
            return false;
        const auto version = inside.substr(1, dot - 1);
        const auto address = inside.substr(dot + 1);
        return std::all_of(version.begin(), version.end(), isHexDigit) &&
               std::all_of(address.begin(), address.end(), [](char c) { return isPlain(c) || c == ':'; });
    }
    in6_addr address{};
    return inside.find('\0') == std::string_view::npos &&
           ::inet_pton(AF_INET6, std::string(inside).c_str(), &address) == 1;
}

/// Appends the authority (RFC 3986, section 3.2) and gives its host, or nothing when it is malformed.
std::optional<std::string> appendAuthority(std::string& out, std::string_view authority) {
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        appendEncoded(out, authority.substr(0, at), ":");
        out += '@';
        authority.remove_prefix(at + 1);
    }
    std::string host;
    std::string_view port;
    if (!authority.empty() && authority.front() == '[') {
        const std::size_t end = authority.find(']');
        if (end == std::string_view::npos || !isIPLiteral(authority.substr(1, end - 1)))
            return std::nullopt;
        host = std::string(authority.substr(0, end + 1));
        port = authority.substr(end + 1);
        if (!port.empty() && port.front() != ':')
            return std::nullopt;
    } else {
        const std::size_t colon = std::min(authority.find(':'), authority.size());
        appendEncoded(host, authority.substr(0, colon), "");
        port = authority.substr(colon);
    }
    if (!port.empty() && !std::all_of(port.begin() + 1, port.end(), isDigit))
        return std::nullopt;
    out += host;
    out += port;
    return host;
}

/// Reads an absolute address by the generic grammar of RFC 3986, section 3.
std::optional<LinkURL> parseURL(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || !isScheme(text.substr(0, colon)))
        return std::nullopt;
    LinkURL url;
    url.scheme = lowerCase(text.substr(0, colon));
    url.text = std::string(text.substr(0, colon + 1));
    std::string_view rest = text.substr(colon + 1);

    const std::size_t hash = std::min(rest.find('#'), rest.size());
    const std::string_view fragment = rest.substr(hash);
    rest = rest.substr(0, hash);
    const std::size_t question = std::min(rest.find('?'), rest.size());
    const std::string_view query = rest.substr(question);
    std::string_view path = rest.substr(0, question);

    if (path.starts_with("//")) {
        path.remove_prefix(2);
        const std::size_t slash = std::min(path.find('/'), path.size());
        url.text += "//";
        auto host = appendAuthority(url.text, path.substr(0, slash));
        if (!host)
            return std::nullopt;
        url.host = std::move(*host);
        path.remove_prefix(slash);
    }
    appendEncoded(url.text, path, ":@/");
    if (!query.empty()) {
        url.text += '?';
        appendEncoded(url.text, query.substr(1), ":@/?");
    }
    if (!fragment.empty()) {
        url.text += '#';
        appendEncoded(url.text, fragment.substr(1), ":@/?");
    }
    return url;
}

constexpr std::array<std::string_view, 5> refusedSchemes{"javascript", "data", "file", "about", "blob"};

bool isWebScheme(std::string_view scheme) {
    return scheme == "http" || scheme == "https";
}

}  // namespace

RelatedFile RelatedFile::make(RelatedFileKind kind, Text name, Text location) {
    RelatedFile file;
    file.id = Identifier::random();
    file.kind = kind;
    file.name = std::move(name);
    file.location = std::move(location);
    return file;
}

std::optional<LinkURL> RelatedFile::linkURL(std::string_view text) {
    const std::string_view typed = trimmed(text);
    if (typed.empty())
        return std::nullopt;
    auto url = typed.find(':') == std::string_view::npos ? parseURL("https://" + std::string(typed))
                                                         : parseURL(typed);
    if (!url || std::find(refusedSchemes.begin(), refusedSchemes.end(), url->scheme) != refusedSchemes.end())
        return std::nullopt;
    if (isWebScheme(url->scheme) && url->host.empty())
        return std::nullopt;
    return url;
}

std::optional<LinkURL> RelatedFile::url() const {
    if (kind == RelatedFileKind::link)
        return linkURL(location.utf8());
    LinkURL url;
    url.scheme = "file";
    // A "%" in a path is a plain character of the name, never the start of an encoded byte.
    std::string path;
    for (const char c : location.utf8())
        path.append(c == '%' ? "%25" : std::string(1, c));
    url.text = "file://";
    appendEncoded(url.text, path, ":@/");
    return url;
}

bool RelatedFile::isWebLink() const {
    if (kind != RelatedFileKind::link)
        return false;
    const auto address = url();
    return address && isWebScheme(address->scheme);
}

Text RelatedFile::identity() const {
    if (kind == RelatedFileKind::link) {
        auto address = linkURL(location.utf8());
        return address ? Text(std::move(address->text)) : location;
    }
    std::string path = std::filesystem::path(location.utf8()).lexically_normal().string();
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return Text(std::move(path));
}

}  // namespace vantry
