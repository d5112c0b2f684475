#include "tools/report/HtmlWriter.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

std::string textWritten(const std::string& text) {
    HtmlWriter html;
    html.text(text);
    return html.html().substr(html.html().find('\n') + 1);
}

}  // namespace

TEST(HtmlWriter, MakesNoMarkupOfText) {
    EXPECT_EQ(textWritten("<script>alert('1')</script> & \"x\""),
              "&lt;script&gt;alert(&#39;1&#39;)&lt;/script&gt; &amp; &quot;x&quot;");
    EXPECT_EQ(textWritten("91 °C – 日本"), "91 °C – 日本");
}

TEST(HtmlWriter, ShowsWhatNobodyWouldSee) {
    EXPECT_EQ(textWritten(std::string("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(textWritten("\x1b\xc2\x9b"), "\\x1b\\x9b");
    EXPECT_EQ(textWritten("\xe2\x80\xae.\xe2\x81\xa6"), "\\u202e.\\u2066");
    EXPECT_EQ(textWritten("\xff"), "\\xff");
}

TEST(HtmlWriter, KeepsAttributesInTheirQuotes) {
    HtmlWriter html;
    html.empty("rect", {{"class", "\" onload=\"x"}, {"id", "'<&>"}});
    html.element("p", "<b>", {{"title", "\""}});
    EXPECT_EQ(html.html(),
              "<!DOCTYPE html>\n<rect class=\"&quot; onload=&quot;x\" id=\"&#39;&lt;&amp;&gt;\"/>"
              "<p title=\"&quot;\">&lt;b&gt;</p>");
}

TEST(HtmlWriter, ClosesElementsInTheOrderInWhichTheyEnd) {
    HtmlWriter html;
    {
        const auto outer = html.open("ul");
        const auto inner = html.open("li", {{"class", "a"}});
        html.text("x");
    }
    EXPECT_EQ(html.html(), "<!DOCTYPE html>\n<ul><li class=\"a\">x</li>\n</ul>\n");
}

}  // namespace tool
