#include "tests/json/HardTexts.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "tests/support/Repeated.h"

namespace customstyle_test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kBlanks[] = {
    ""sv,      " "sv,      "\0"sv,     "\0\0\0"sv,  "\t\r\n\v\f"sv,  "\x01\x02\x1F[]"sv,
    "[]\0"sv,  "\0[]"sv,   "[\0]"sv,   "[\0001]"sv, "[1\0,\0002]"sv, "{\0\"a\"\0:\0001\0}"sv,
    "\x7F"sv,  "[\x7F]"sv, "[\x80]"sv, "[\xA0]"sv,  "[\xC2\xA0]"sv,  "[1\xE2\x80\xA8]"sv,
    "  1  "sv, "1 "sv,     " 1"sv,     "[ ]"sv,     "{ }"sv,         "[ "sv,
    "{ "sv,    "[\n"sv,    "1\n2"sv};

constexpr std::string_view kBehindByteOrderMark[] = {""sv,       "1"sv,
                                                     "12"sv,     "1 "sv,
                                                     " 1"sv,     "[]"sv,
                                                     "{}"sv,     "  "sv,
                                                     "\0\0[]"sv, "\xEF\xBB\xBF[]"sv,
                                                     "x"sv,      "[1]\xEF\xBB\xBF"sv};

constexpr std::string_view kByteOrderMarks[] = {"\xEF"sv,
                                                "\xEF\xBB"sv,
                                                "\xEF\xBB[1]"sv,
                                                "\xEF\xBB\xBE[]"sv,
                                                " \xEF\xBB\xBF[]"sv,
                                                "[\xEF\xBB\xBF]"sv,
                                                "[1]\xEF\xBB\xBF"sv,
                                                "\xFF\xFE[\0]\0"sv,
                                                "\xFE\xFF\0[\0]"sv,
                                                "[\0]\0"sv,
                                                "[\0\"\0a\0\"\0]\0"sv};

// Bytes beyond ASCII, line ends and NUL where they matter.
constexpr std::string_view kUnusualBytes[] = {"[tru\0e]"sv,
                                              "[true\0]"sv,
                                              "[1\0002]"sv,
                                              "1\0002"sv,
                                              "\"a\nb\""sv,
                                              "\"a\r\nb\""sv,
                                              "\"a\tb\""sv,
                                              "\"a\0b\""sv,
                                              "\"\0\""sv,
                                              "\"\x01\""sv,
                                              "\"\x7F\""sv,
                                              "\"\xFF\""sv,
                                              "\"\xC3\xA9\""sv,
                                              "\"\xC3\""sv,
                                              "\"\xED\xA0\x80\""sv,
                                              "\"\xF0\x9F\x98\x80\""sv,
                                              "\"\xE2\x80\xA8\""sv,
                                              "[\"a\n]"sv,
                                              "[\"a\n\", \"b\"]"sv,
                                              "\"\\\n\""sv,
                                              "\"\\\0\""sv,
                                              "\"\\u004\xC3\""sv,
                                              "\"\\u00\0001\""sv,
                                              "[//\n1]"sv,
                                              "[1 // one\n]"sv,
                                              "[#\n1]"sv,
                                              "#\n[1]"sv,
                                              "//\n[1]"sv,
                                              "[1,\0]"sv,
                                              "{\"a\":1, "sv,
                                              "{\"a\0b\":1}"sv,
                                              "{\"a\nb\":1}"sv,
                                              "{\"\xC3\x84\":1}"sv,
                                              "{\"a\":1,// b\n\"b\":2}"sv,
                                              "{\"a\":\"b,\n\"c\":1}"sv};

// In the blocks below two blanks or a line end part the texts.
constexpr std::string_view kWords = R"(
true  false  null  tru  fals  nul  t  f  n  truefalse  nullx  null1  true]  [truefalse]  [true false]
[nullnull]  [nul]  [True]  [TRUE]  [NULL]  [None]  [nil]  [undefined]  [NaN]  [nan]  [Infinity]  [-Infinity]
[-inf]  [-nan]  [t]  [true,]  yes
)";

constexpr std::string_view kNumbers = R"(
0  -0  -  +1  [+1]  01  [01]  [007]  [-01]  [00]  [-]  [--1]  [-+1]  [+-1]  [1-2]  [1+2]  [1 2]  [.5]  [-.5]
[-.]  [-.e1]  [1.]  [1.e2]  [1.E+2]  [0.]  [1..2]  [1.2.3]  [1e]  [1e+]  [1e-]  [1ee2]  [1e2e3]  [1e2.5]
[1E5]  [1e05]  [1e+05]  [-e5]  [e5]  1e  1e+  1-  1.2.3  12px  1e5x  [12px]  [0x10]  0x10  [0b1]  [1_000]
[1,5]  [1'000]  [1f]  [1n]  [- 1]  [1 .5]  [0.1]  [0.1e1]  [3.141592653589793]  [2.2250738585072011e-308]
[2.2250738585072014e-308]  [1.7976931348623157e308]  [1.7976931348623158e308]  [1.7976931348623159e308]
[1e308]  [1e309]  [-1e309]  [1e400]  [-1e400]  [4.9e-324]  [2.5e-324]  [2.4703282292062327e-324]
[2.4703282292062328e-324]  [2e-324]  [-2e-324]  [1e-400]  [-1e-400]  [0e400]  [-0e400]  [0e-400]  [0.0]
[-0.0]  [-0e0]  [1e99999999999999999999]  [-1e99999999999999999999]  [1e-99999999999999999999]
[0e99999999999999999999]  [0.0e99999999999999999999]  [2147483647]  [2147483648]  [2147483646.9]
[2147483647.5]  [-2147483648]  [-2147483649]  [-2147483648.5]  [-2147483647.9]  [4294967295]  [4294967296]
[9007199254740993]  [9223372036854775807]  [18446744073709551615]  [18446744073709551616]  [0.99999]
[-0.99999]  [1e-1]  [5e-1]  [1.5]  [-1.5]  [123456789012345678901234567890]
[0.000000000000000000000000000000000000001]  [1000000000000000000000e-21]  [9.5367431640625e-7]
[8.988465674311579e307]  [9007199254740992.5]  [1.00000000000000011102230246251565]
)";

constexpr std::string_view kTexts = R"(
"  ""  """  "a  a"  "a"b  "\"  "\\"  "\  "\\  'a'  ["a" "b"]  ["a""b"]  ["a]  "/"  "//"  "/* */"
)";

constexpr std::string_view kEscapes = R"(
"\"\\\/\b\f\n\r\t"  "\a"  "\v"  "\0"  "\x41"  "\'"  "\ "  "\N"  "\U0041"  "\u"  "\u0"  "\u00"  "\u004"
"\u0041"  "\u00412"  "\u00e9"  "\u00E9"  "\u007f"  "\u0080"  "\u07ff"  "\u0800"  "\uffff"  "\ufffd"  "\ufeff"
"\u0000"  "a\u0000b"  "\u0000\u0000"  "\uzzzz"  "a\uzzzzb"  "\u00g0"  "\u 041"  "\u-041"  "\u+041"  "\u0x41"
"\u12\"4"  "\u123\"4"  "\u\\\\"  "\u12"34"  "\u\u0041"  "\u00\n"  "\u0041  "\u004  "\u
)";

constexpr std::string_view kSurrogates = R"(
"\ud83d\ude00"  "\uD83D\uDE00"  "\ud800\udc00"  "\udbff\udfff"  "\ud7ff"  "\ue000"  "\ud83d"  "\ude00"
"\ud83d\ud83d"  "\ude00\ud83d"  "\ud83dx"  "\ud83d\n12345"  "\ud83d\u0041"  "\ud83d\uzzzz"  "\ud83d\ude0"
"\ud83d\u"  "\ud83d\\ude00"  "\ud83d\Ude00"  "\ud83d ude00"  "\udc00\udc00"  "\ud83d\ude00\ud83d"
"a\ud83d\ude00b"  "\ud83d\ue000"  "\ud83d\udbff"  "\ud83d/ude00"
)";

constexpr std::string_view kLists = R"(
[  ]  []  []]  [[]  [[]]  [,]  [1,]  [,1]  [1,,2]  [1,2  [1,  [1  [1;2]  [1:2]  [1}  [}  [1 , 2 ]  [[],[]]
[[][]]  [] []  [],  [1]x  [1] // end  [1]//  [/* */1]  [1/**/,2]  /  [/]  [*]  (1)  [1)  <a/>  [#ff0000]  [a]
[$]  [1,}  [[1,2],[3,4  ["a",1,null,true,{},[]]
)";

constexpr std::string_view kObjects = R"(
{  }  {}  {}}  {{}  {{}}  {]  {,}  {:}  {1}  {1:2}  {a:1}  {'a':1}  {"a"}  {"a":}  {"a":,}  {"a":1,}
{"a":1,,}  {,"a":1}  {"a" 1}  {"a"=1}  {"a"::1}  {"a":1:2}  {"a":1 "b":2}  {"a":1;"b":2}  {"a":1,"b"}
{"a":1,"b":}  {"a":1,"b"  {"a":1,"  {"a":1,  {"a":1  {"a":  {"a"  {"a  {"  {"a":1]  {"a":[}  {"a":{]}  {"":1}
{"":""}  {"a":1,"a":2}  {"a":1,"A":2}  {"A":1,"a":2}  {"a\u0000b":1}  {"\u0061":1}  {"\uzzzz":1}  {"\q":1}
{"\ud83d":1}  {null:1}  {"a":1}{"b":2}  {"a":1} x  {/**/"a":1}  {"a"/**/:1}  {"a":/**/1}  {"a":tru}
{"__proto__":{}}  { "a" : 1 , "b" : [ { } ] }
)";

void addBlock(std::vector<std::string>& texts, std::string_view block) {
    for (std::size_t begin = 0; begin < block.size();) {
        const std::size_t end = std::min({block.find("  ", begin), block.find('\n', begin), block.size()});
        if (end > begin) texts.emplace_back(block.substr(begin, end - begin));
        begin = end + (block.substr(end).starts_with("  ") ? 2 : 1);
    }
}

std::string listOf(std::string_view elements) {
    return std::string("[").append(elements).append("]");
}

void addDeepTexts(std::vector<std::string>& texts) {
    for (const std::size_t depth : {2U, 999U, 1000U, 1001U, 1002U, 5000U}) {
        texts.push_back(nested("[", "", "]", depth));
        texts.push_back(nested("[", "1", "]", depth));
        texts.push_back(nested("[1,", "2", "]", depth));
        texts.push_back(nested("{\"a\":", "null", "}", depth));
        texts.push_back(nested("{\"a\":[", "{}", "]}", depth / 2));
        texts.push_back(nested("[", "[],[],[]", "]", depth - 1));
        texts.push_back(repeated("[", depth));
        texts.push_back(repeated("{\"a\":", depth));
        texts.push_back(listOf(repeated("[],", depth) + "1"));
    }
}

void addLongNumbers(std::vector<std::string>& texts) {
    for (const std::size_t length :
         {15U, 17U, 61U, 62U, 63U, 64U, 65U, 127U, 128U, 308U, 309U, 310U, 400U, 800U, 2000U}) {
        const std::string zeros(length, '0');
        const std::string digits(length, '7');
        for (const std::string& number :
             {digits, "1" + zeros, zeros + "1", "0." + zeros + "1", "0." + digits, digits + ".5", digits + "e-300",
              "0." + zeros + "1e300", "0." + zeros + "1e400", "1" + zeros + "e-400", "1e" + zeros + "5",
              "1e-" + zeros + "5", digits + "-", digits + ".", digits + "x"}) {
            texts.push_back(listOf(number));
            texts.push_back(std::string("-").append(number));
        }
    }
}

// The component's parser looks ahead by fixed lengths: each short text with a last byte that could complete it.
void addTextsThatEndEarly(std::vector<std::string>& texts) {
    for (const std::string_view whole :
         {"true"sv, "false"sv, "null"sv, "-1.5e+3"sv, "\"\\ud83d\\ude00\""sv, "{\"a\":1}"sv}) {
        for (std::size_t size = 1; size < whole.size(); ++size) {
            texts.emplace_back(whole.substr(0, size));
            texts.push_back(std::string("[").append(whole.substr(0, size)));
            texts.push_back(listOf(whole.substr(0, size)));
        }
    }
}

}  // namespace

std::vector<std::string> hardTexts() {
    std::vector<std::string> texts;
    const auto add = [&texts](const auto& group) { texts.insert(texts.end(), std::begin(group), std::end(group)); };
    add(kBlanks);
    add(kByteOrderMarks);
    add(kUnusualBytes);
    for (const std::string_view block : {kWords, kNumbers, kTexts, kEscapes, kSurrogates, kLists, kObjects})
        addBlock(texts, block);
    for (const std::string_view text : kBehindByteOrderMark) texts.push_back(std::string("\xEF\xBB\xBF").append(text));
    addDeepTexts(texts);
    addLongNumbers(texts);
    addTextsThatEndEarly(texts);
    return texts;
}

std::vector<std::string> seedTexts() {
    return {
        R"([{"featureType": "highway", "elementType": "labels.text", "stylers": {"color": "#f00", "level": "9"}}])",
        R"({"land": [1, 2, 3], "green": [], "water": [4294967295, -1, 0], "Land": [7], "land": null})",
        R"([0, -0, 1, -1.5, 2.5e3, 1E-2, 1e400, 007, 1., -.5, 2147483648, 123456789012345678901234567890, 4.9e-324])",
        R"(["", "a", "\"\\\/\b\f\n\r\t", "\u0041\u00e9\u20ac\ud83d\ude00", "a\u0000b", "\uzzzz", "é€😀"])",
        R"( [ true , false , null , [ ] , { } , [ [ [ ] ] ] , { "a" : { "b" : { "c" : [ 1 , 2 ] } } } ] )",
        "\xEF\xBB\xBF[1, \"two\", {\"\": \"\", \"three\": 3}]\r\n",
        "{\"a\\u0000b\": 1, \"A\": [2, {\"deep\": \"text\\n\"}],\n\t\"c\": \"raw\nline\"} // behind",
        R"([{"a":[{"b":[{"c":[{"d":[]}]}]}]},{"e":-12.75e-2},[["x",["y",["z"]]]],"end"])",
    };
}

}  // namespace customstyle_test
