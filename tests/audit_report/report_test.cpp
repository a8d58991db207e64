#include "audit_report/report.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// The blocks in one line: number, then additions and deductions by their amounts.
std::string Told(const std::vector<ReportedBlock>& blocks)
{
    std::string told;
    for (const ReportedBlock& block : blocks) {
        told += block.members[{"DescBlockAssets"}] + '=' + block.members[{"OpeningWDV"}];
        for (const Members& each : block.additions)
            told += " +" + each[{"PurchaseOrSaleValue"}];
        for (const Members& each : block.deductions)
            told += " -" + each[{"PurchaseOrSaleValue"}];
        told += ';';
    }
    return told;
}

std::string Refused(const std::string& content)
{
    try {
        return "read: " + Told(ReadReport(content));
    } catch (const ReportError& error) {
        return error.what();
    }
}

std::string Deep(std::string_view opens, int times)
{
    std::string text;
    for (int i = 0; i < times; ++i)
        text += opens;
    return text;
}

std::string Name(const std::string& content) { return ReadReport(content).at(0).members[{"AssetsName"}]; }

} // namespace

TEST(AuditReport, IsReadWhateverItsFormAndPrefix)
{
    const struct {
        const char* what;
        std::string content;
        const char* told;
    } cases[] = {
        {"XML without a prefix",
         "<?xml version=\"1.0\"?><FORM3CB><F3CB><Form3cdDeprAllw><Additions><PurchaseOrSaleValue>50"
         "</PurchaseOrSaleValue></Additions><Additions><PurchaseOrSaleValue>60</PurchaseOrSaleValue></Additions>"
         "<Deductions><PurchaseOrSaleValue>40</PurchaseOrSaleValue></Deductions><DescBlockAssets>1</DescBlockAssets>"
         "<OpeningWDV>1500</OpeningWDV></Form3cdDeprAllw><Form3cdDeprAllw><DescBlockAssets>11</DescBlockAssets>"
         "</Form3cdDeprAllw></F3CB></FORM3CB>",
         "1=1500 +50 +60 -40;11=;"},
        {"two prefixes, a comment and a section within the number, another case of letters",
         "\xEF\xBB\xBF \n<a:F xmlns:a=\"x\" xmlns:b=\"y\"><b:Form3cdDeprAllw><a:descblockassets> 12\n"
         "</a:descblockassets><b:OpeningWDV>1<!-- . -->0<![CDATA[0]]></b:OpeningWDV>"
         "<a:Additions><b:PurchaseOrSaleValue>7</b:PurchaseOrSaleValue></a:Additions></b:Form3cdDeprAllw></a:F>",
         "12=100 +7;"},
        {"JSON as the utility saves it",
         R"({"FORM3CA":{"F3CA":{"Form3cdDeprAllw":[{"Additions":[{"PurchaseOrSaleValue":50}],
             "Deductions":[{"PurchaseOrSaleValue":40.5,"Deletioncheckbox":"true"}],"DescBlockAssets":"1",
             "OpeningWDV":1500},{"DescBlockAssets":48,"OpeningWDV":"1,800"}]}}})",
         "1=1500 +50 -40.5;48=1,800;"},
        {"JSON in the portal's envelope, single objects in place of lists",
         R"({"metadata":{"formName":"F3CB-3CD"},"data":{"FORM3CB":{"F3CB":{"Form3cdDeprAllw":
             {"Additions":{"PurchaseOrSaleValue":-5},"DescBlockAssets":"13","OpeningWDV":null}}}}})",
         "13= +-5;"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Told(ReadReport(each.content)), each.told) << each.what;
}

TEST(AuditReport, TextsComeBackAsTheyAre)
{
    const std::string name = "\"O'Hara's\" <press> & यंत्र; drop table x --";
    EXPECT_EQ(Name("<r><Form3cdDeprAllw><AssetsName>&quot;O&apos;Hara&#39;s&quot; &lt;press&gt; &amp; "
                   "&#x92F;&#x902;त्र; drop table x --</AssetsName></Form3cdDeprAllw></r>"),
              name);
    EXPECT_EQ(Name(R"({"FORM3CA":{"F3CA":{"Form3cdDeprAllw":[{"AssetsName":"\"O'Hara's\" <press> & )"
                   R"(\u092f\u0902त्र; drop table x --"}]}}})"),
              name);
    EXPECT_EQ(Name("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r><Form3cdDeprAllw><AssetsName>Caf\xE9</AssetsName>"
                   "</Form3cdDeprAllw></r>"),
              "Café");
    const std::u16string wide = u"\xFEFF<r><Form3cdDeprAllw><AssetsName>यंत्र</AssetsName></Form3cdDeprAllw></r>";
    EXPECT_EQ(Name({reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(char16_t)}), "यंत्र");
}

TEST(AuditReport, AnythingElseIsRefusedInWords)
{
    const std::string kNeither = "This is no audit report: the file is neither XML nor JSON.";
    const std::string kNoSchedule = "The file holds no depreciation schedule (Form3cdDeprAllw): it is no audit report, "
                                    "or one without depreciation.";
    const std::string kXml = "The XML of the file is damaged or not complete.";
    const std::string kJson = "The JSON of the file is damaged or not complete.";
    const std::string kType = "The file declares a document type of its own, as no audit report does. It is not read.";
    const std::string kEncoding =
        "The file is damaged, or not in the encoding that it tells: a text in it can not be read.";
    const std::string block = "<Form3cdDeprAllw><OpeningWDV>1</OpeningWDV></Form3cdDeprAllw>";
    const struct {
        const char* what;
        std::string content;
        std::string words;
    } cases[] = {
        {"nothing", "", kNeither},
        {"blanks", " \r\n", kNeither},
        {"a picture", std::string("\x89PNG\r\n\x1A\n\0", 9), kNeither},
        {"a list", "[1]", kNeither},
        {"another XML", "<ITR><OpeningWDV>5</OpeningWDV></ITR>", kNoSchedule},
        {"another JSON", R"({"ITR":{"ITR3":{"Form3cdDeprAllw":[{}]}}})", kNoSchedule},
        {"a form in place of an object", R"({"FORM3CA":[{"F3CA":7}]})", kNoSchedule},
        {"a list of numbers", R"({"FORM3CA":{"F3CA":{"Form3cdDeprAllw":[1,"x",null]}}})", kNoSchedule},
        {"cut XML", "<r>" + block, kXml},
        {"crossed elements", "<r><a>" + block + "</r></a>", kXml},
        {"a zero byte", std::string("<r>\0", 4) + block + "</r>", kXml},
        {"cut JSON", R"({"FORM3CA":{"F3CA":{"Form3cdDeprAllw":[{"OpeningWDV":1)", kJson},
        {"two JSON texts", "{} {}", kJson},
        {"a number beyond all bounds", R"({"FORM3CA":9E999})", kJson},
        {"broken UTF-8 in JSON", "{\"FORM3CA\":\"\xC3\"}", kJson},
        {"broken UTF-8 in XML", "<r><Form3cdDeprAllw><AssetsName>Caf\xE9</AssetsName></Form3cdDeprAllw></r>",
         kEncoding},
        {"an entity that grows",
         "<!DOCTYPE r [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]><r>" + block + "&b;</r>",
         kType},
        {"a file of this computer", "<!DOCTYPE r [<!ENTITY e SYSTEM \"file:///etc/passwd\">]><r>&e;" + block + "</r>",
         kType},
        {"a type kept elsewhere", "<!DOCTYPE r SYSTEM \"http://localhost/r.dtd\"><r>" + block + "</r>", kType},
        {"XML a million elements deep", Deep("<a>", 1'000'000), kXml},
        {"JSON a million lists deep", "{\"a\":" + Deep("[", 1'000'000), kJson},
        {"a million closed lists", "{\"a\":" + Deep("[", 1'000'000) + Deep("]", 1'000'000) + '}', kNoSchedule},
        {"a million closed elements", Deep("<a>", 1'000'000) + Deep("</a>", 1'000'000), kNoSchedule},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Refused(each.content), each.words) << each.what;
}

TEST(AuditReport, FileIsHeldAgainstTheLimit)
{
    const TemporaryFolder folder;
    const auto path = (folder.path() / "report.xml").string();
    const auto words = [](const std::string& file) -> std::string {
        try {
            return std::to_string(ReportFileContent(file).size());
        } catch (const Fault& error) {
            return error.what();
        }
    };
    folder.Write("report.xml", "<r/>");
    EXPECT_EQ(words(path), "4");
    std::filesystem::resize_file(path, kLargestReport);
    EXPECT_EQ(words(path), "67108864");
    std::filesystem::resize_file(path, kLargestReport + 1);
    EXPECT_EQ(words(path), path + " is larger than 64 MB: no audit report is.");
    EXPECT_EQ(words(folder.path().string()), folder.path().string() + " is no file.");
    EXPECT_NE(words(path + "x").find(path + "x"), std::string::npos);
}
