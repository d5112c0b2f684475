// The page for browsers, of the sample machine and of one whose texts would be markup.

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <pugixml.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::HasSubstr;
using ::testing::Not;

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t filesIn(const std::filesystem::path& folder) {
    using Files = std::filesystem::directory_iterator;
    return static_cast<std::size_t>(std::distance(Files(folder), Files()));
}

const std::string kHostileMachine =
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>"
    "<QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\"boolean\" ISARRAY=\"false\"><SCOPE PROPERTY=\"true\"/>"
    "<VALUE>FALSE</VALUE></QUALIFIER.DECLARATION>"
    "<VALUE.OBJECT><CLASS NAME=\"CIM_ManagedElement\"/></VALUE.OBJECT>"
    "<VALUE.OBJECT><CLASS NAME=\"CIM_ManagedSystemElement\" SUPERCLASS=\"CIM_ManagedElement\">"
    "<PROPERTY NAME=\"Name\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" TYPE=\"boolean\"><VALUE>TRUE</VALUE>"
    "</QUALIFIER></PROPERTY><PROPERTY NAME=\"HealthState\" TYPE=\"uint16\"/></CLASS></VALUE.OBJECT>"
    "<VALUE.OBJECT><INSTANCE CLASSNAME=\"CIM_ManagedSystemElement\"><PROPERTY NAME=\"Name\" TYPE=\"string\">"
    "<VALUE>&lt;script&gt;alert(1)&lt;/script&gt;'&quot;</VALUE></PROPERTY>"
    "<PROPERTY NAME=\"HealthState\" TYPE=\"uint16\"><VALUE>25</VALUE></PROPERTY></INSTANCE></VALUE.OBJECT>"
    "</DECLGROUP></DECLARATION></CIM>";

}  // namespace

TEST(ReportCommand, WritesOnePageThatNeedsNothingFromElsewhere) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "machine.html";
    const Outcome outcome = run({"report", file.string()});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, file.string() + ": 5 of 53 elements on 3 nodes are not well, 13 tell no state\n");
    EXPECT_EQ(filesIn(folder.path()), 1U);
    const std::string page = contentOf(file);
    for (const char* reference :
         {"http://", "https://", "\"//", "'//", "url(", "@import", " src=", "<link"}) {
        EXPECT_THAT(page, Not(HasSubstr(reference)));
    }
    for (const char* text :
         {"DIMM 4 Temp", "91 °C &gt; 85 upper non-critical", "<h3>2024-09-12</h3>",
          "Memory module 4 corrected 1000 errors within 24 hours", "OMC_UnitaryComputerSystem"}) {
        EXPECT_THAT(page, HasSubstr(text));
    }
    pugi::xml_document document;
    EXPECT_TRUE(document.load_string(page.c_str()));
    EXPECT_EQ(document.select_nodes("//ul[@class='nodes']/li").size(), 3U);
    EXPECT_EQ(document.select_nodes("//ul[@class='elements']/li").size(), 5U);
}

TEST(ReportCommand, MakesNoMarkupOfWhatServersSay) {
    TestMachine machine(1);
    machine.Repository(0).addDeclarations("root/test", kHostileMachine, "test.xml");
    const TemporaryFolder folder;
    const auto file = folder.path() / "machine.html";
    const Outcome outcome =
        run({"--node", machine.Host(0), "--namespace", "root/test", "report", file.string()});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string page = contentOf(file);
    EXPECT_THAT(page, HasSubstr("<h3>&lt;script&gt;alert(1)&lt;/script&gt;&#39;&quot;</h3>"));
    EXPECT_THAT(page, Not(HasSubstr("<script>alert")));
}

TEST(ReportCommand, ReplacesNothingThatIsNoFile) {
    const TemporaryFolder folder;
    const Outcome outcome = run({"report", folder.path().string()});
    EXPECT_EQ(outcome.status, 6);
    EXPECT_EQ(outcome.err, "cimhttp: cannot write " + folder.path().string() + ": it is no file\n");
    EXPECT_EQ(run({"report", (folder.path() / "none" / "x.html").string()}).status, 6);
    EXPECT_EQ(filesIn(folder.path()), 0U);
}

TEST(ReportCommand, RefusesWhatIsNoPage) {
    const Outcome json = run({"--format", "json", "report", "x.html"});
    EXPECT_EQ(json.status, 2);
    EXPECT_EQ(json.err, "cimhttp: report writes HTML: --format is for the other commands\n");
    const Outcome watched = run({"watch", "1", "report", "x.html"});
    EXPECT_EQ(watched.status, 2);
    EXPECT_EQ(watched.err, "cimhttp: watch shows text: report writes a file\n");
}

}  // namespace tool
