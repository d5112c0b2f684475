#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tool {

/// Writes HTML that XML readers can read, too. Whatever is given as text or as an attribute's value is made
/// harmless here, so that nothing that a server says becomes markup; names of elements and attributes are the
/// program's own.
class HtmlWriter {
public:
    using Attributes = std::vector<std::pair<const char*, std::string>>;

    /// An element that is open as long as this lives.
    class Scope {
    public:
        ~Scope() { writer_.close(name_); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        friend class HtmlWriter;
        Scope(HtmlWriter& writer, const char* name) : writer_(writer), name_(name) {}

        HtmlWriter& writer_;
        const char* name_;
    };

    HtmlWriter();

    [[nodiscard]] Scope open(const char* name, const Attributes& attributes = {});
    void element(const char* name, std::string_view text, const Attributes& attributes = {});
    void empty(const char* name, const Attributes& attributes = {});
    void text(std::string_view text);

    /// A style or a script, whose text goes out as it stands: a constant of the program's.
    template <std::size_t SIZE>
    void asset(const char* name, const char (&content)[SIZE]) {  // NOLINT(modernize-avoid-c-arrays)
        writeAsset(name, std::string_view(content, SIZE - 1));
    }

    const std::string& html() const { return html_; }

private:
    void begin(const char* name, const Attributes& attributes);
    void close(const char* name);
    void writeAsset(const char* name, std::string_view content);

    std::string html_;
};

}  // namespace tool
