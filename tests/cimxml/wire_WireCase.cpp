#include "tests/cimxml/wire_WireCase.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/cimxml/wire_ScriptedServer.h"

namespace cimxml_test {

namespace {

const std::string defaultHead =
    "HTTP/1.1 200 OK\nContent-Type: application/xml; charset=\"utf-8\"\nCIMOperation: MethodResponse\n";

/// "{hex 41 42}" stands for the bytes, "{lf}" for a line end that is not one of the file's own.
std::string expandBytes(const std::string& text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, 5, "{hex ") != 0) {
            out += text[at++];
            continue;
        }
        const std::size_t end = text.find('}', at);
        std::istringstream bytes(text.substr(at + 5, end - at - 5));
        for (std::string byte; bytes >> byte;) {
            out += static_cast<char>(std::stoi(byte, nullptr, 16));
        }
        at = end + 1;
    }
    return out;
}

/// "{repeat N TEXT}" stands for N times TEXT, which has no closing brace.
std::string expandRepeats(const std::string& text) {
    const std::size_t start = text.find("{repeat ");
    if (start == std::string::npos) {
        return text;
    }
    const std::size_t end = text.find('}', start);
    std::size_t digits = 0;
    const int times = std::stoi(text.substr(start + 8), &digits);
    const std::size_t from = start + 8 + digits + 1;
    std::string repeated;
    for (int i = 0; i < times; ++i) {
        repeated += text.substr(from, end - from);
    }
    return text.substr(0, start) + repeated + expandRepeats(text.substr(end + 1));
}

std::string withCrLf(const std::string& lines) {
    std::string out;
    for (const char c : lines) {
        out += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return out;
}

/// Unequal pieces, one of them of a single byte, so that every chunk header differs.
std::string chunked(const std::string& body) {
    std::string out;
    std::size_t size = 1;
    for (std::size_t at = 0; at < body.size(); at += size, size = size * 2 + 1) {
        size = std::min(size, body.size() - at);
        char header[32];
        std::snprintf(header, sizeof header, "%zx\r\n", size);
        out += header + body.substr(at, size) + "\r\n";
    }
    return out + "0\r\n";
}

std::string wrap(const std::string& element, const std::string& method, const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"{ID}\" PROTOCOLVERSION=\"1.0\">"
           "<SIMPLERSP><" +
           element + " NAME=\"" + method + "\">" + content + "</" + element + "></SIMPLERSP></MESSAGE></CIM>";
}

/// Name of the method that a call ends up as on the wire.
std::string methodOf(const std::vector<std::string>& call) {
    for (const std::string& line : call) {
        if (line.rfind("method ", 0) == 0) {
            return line.substr(7);
        }
    }
    std::string name = call.at(0).substr(0, call.at(0).find(' '));
    name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
    return name;
}

class Loader {
public:
    explicit Loader(const std::string& path) : path_(path), in_(path) {
        if (!in_) {
            throw std::runtime_error("cannot open " + path);
        }
    }

    WireCase run() {
        for (std::string line; std::getline(in_, line);) {
            ++line_;
            if (line.rfind("--- ", 0) == 0) {
                endSection();
                section_ = line.substr(4);
                text_.clear();
            } else if (!section_.empty()) {
                text_ += line + "\n";
            } else if (!line.empty() && line[0] != '#') {
                fail("text before the first section");
            }
        }
        endSection();
        check();
        return std::move(case_);
    }

private:
    void endSection() {
        const std::string name = section_.substr(0, section_.find(' '));
        const std::string body = text_.empty() ? text_ : text_.substr(0, text_.size() - 1);
        if (name.empty()) {
            return;
        }
        if (name == "call") {
            case_.call = lines();
        } else if (name == "outcome") {
            case_.outcome = text_;
        } else if (name == "request") {
            newRound();
            readRequest();
        } else if (name == "head") {
            round().head = text_;
        } else if (name == "body") {
            round().body = expandRepeats(expandBytes(body));
        } else if (name == "content") {
            const bool extrinsic = case_.call.at(0).rfind("invokeMethod", 0) == 0;
            round().body = expandRepeats(expandBytes(
                wrap(extrinsic ? "METHODRESPONSE" : "IMETHODRESPONSE", methodOf(case_.call), body)));
        } else if (name == "trailer") {
            round().trailer = text_;
        } else if (name == "raw") {
            round().raw = expandRepeats(expandBytes(withCrLf(body)));
            round().isRaw = true;
        } else if (name == "end") {
            round().end = body;
        } else {
            fail("unknown section " + name);
        }
    }

    std::vector<std::string> lines() const {
        std::vector<std::string> all;
        std::istringstream in(text_);
        for (std::string line; std::getline(in, line);) {
            if (!line.empty()) {
                all.push_back(line);
            }
        }
        return all;
    }

    void readRequest() {
        for (const std::string& line : lines()) {
            if (line.rfind("contains ", 0) == 0) {
                round().requestContains.push_back(line.substr(9));
            } else if (line.rfind("lacks ", 0) == 0) {
                round().requestLacks.push_back(line.substr(6));
            } else if (line.rfind("field ", 0) == 0) {
                round().requestFields.push_back(line.substr(6));
            } else {
                fail("in a request, expected field, contains or lacks: " + line);
            }
        }
    }

    void newRound() {
        case_.rounds.emplace_back();
        case_.rounds.back().head = defaultHead;
    }

    WireCase::Round& round() {
        if (case_.rounds.empty()) {
            newRound();
        }
        return case_.rounds.back();
    }

    void check() const {
        if (case_.call.empty() || case_.outcome.empty()) {
            fail("a case needs the sections call and outcome");
        }
    }

    [[noreturn]] void fail(const std::string& what) const {
        throw std::runtime_error(path_ + ":" + std::to_string(line_) + ": " + what);
    }

    std::string path_;
    std::ifstream in_;
    int line_ = 0;
    std::string section_;
    std::string text_;
    WireCase case_;
};

}  // namespace

std::string WireCase::Round::format(Framing framing, const std::string& messageId) const {
    const std::string text = replaceAll(body, "{ID}", messageId);
    std::string bytes = withCrLf(head);
    if (isRaw) {
        bytes = replaceAll(raw, "{ID}", messageId);
    } else if (framing == Framing::Length && trailer.empty()) {
        bytes += "Content-Length: " + std::to_string(text.size()) + "\r\n\r\n" + text;
    } else {
        bytes += "Transfer-Encoding: chunked\r\n\r\n" + chunked(text) + withCrLf(trailer) + "\r\n";
    }
    return end.rfind("cut ", 0) == 0 ? bytes.substr(0, std::stoul(end.substr(4))) : bytes;
}

bool WireCase::hasFraming() const {
    return std::any_of(rounds.begin(), rounds.end(),
                       [](const Round& round) { return !round.isRaw && round.trailer.empty(); });
}

WireCase WireCase::load(const std::string& path) {
    return Loader(path).run();
}

std::vector<std::string> caseNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(CIMXML_TEST_DATA "/cases")) {
        if (entry.path().extension() == ".case") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string casePath(const std::string& name) {
    return CIMXML_TEST_DATA "/cases/" + name + ".case";
}

}  // namespace cimxml_test
