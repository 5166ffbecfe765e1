// Tests of what the shell prints on request: values alone, JSON, places of errors, and nothing more
// after an error.
#include <gtest/gtest.h>

#include "tests/shell/shell.h"

namespace Quarn {
namespace {

struct Row {
  std::string arguments;  // as sh reads them
  const char* output;
  int status;
};

template <std::size_t N>
void ExpectOutputs(const Row (&rows)[N]) {
  for (const Row& row : rows) {
    const Outcome outcome = RunWithMessages(row.arguments + " 2>/dev/null");
    EXPECT_EQ(outcome.output, row.output) << row.arguments;
    EXPECT_EQ(outcome.status, row.status) << row.arguments;
  }
}

TEST(PlainOutput, IsTheValueAlone) {
  const Row kRows[] = {
      {"--plain -e '1/4'",               "0.25\n",      0},
      {"--plain -e 'x=3;x*2;?x'",        "6\n3\n",      0},
      {"--plain -e 'v=<1, 2>;v+v'",      "<2, 4>\n",    0},
      {"--plain -e 'r&=2*y;y=4;r;?r'",   "8\n8\n",      0},
      {"-e '1/0;0/0' --plain",           "inf+\nnan\n", 0},
      {"--plain -e 'x;~x;~x;x:=3;// 1'", "",            0},
      {"--plain -e '~;1'",               "1\n",         0}, // the question is elsewhere
      {"--plain -e '1+zz;2'",            "2\n",         1},
  };
  ExpectOutputs(kRows);
}

TEST(PlainOutput, LeavesMessagesToStandardError) {
  EXPECT_EQ(RunWithMessages("--plain -e '1+zz;a;x=a' >/dev/null").output,
            "-e:1: Error : Unknown symbol 'zz'\n"
            "-e:1: Warning : 'Symbol=Symbol' does nothing\n");
}

TEST(JsonOutput, IsAnObjectForEachCommand) {
  const Row kRows[] = {
      {"--json -e 'x=1/4'",
       R"({"kind":"definition","type":"Scalar","name":"x","value":0.25,"text":"0.25"})"
       "\n", 0},
      {"--json -e '0.1+0.2'",
       R"({"kind":"value","type":"Scalar","value":0.30000000000000004,"text":"0.3"})"
       "\n", 0},
      {"--json -e '<<1>, <1/0>>'",
       R"({"kind":"value","type":"Vector","value":[[1],[null]],"text":"<<1>, <inf+>>"})"
       "\n", 0},
      {"--json -e 'a'",
       R"({"kind":"definition","type":"Symbol","name":"a","value":null,"text":"a"})"
       "\n", 0},
      {"--json -e 'r&=2*y'",
       R"({"kind":"definition","type":"Reference","name":"r","value":null,"text":"2*y"})"
       "\n", 0},
      {"--json -e 'x=2;?x'",
       R"({"kind":"definition","type":"Scalar","name":"x","value":2,"text":"2"})"
       "\n"
       R"({"kind":"query","type":"Scalar","name":"x","value":2,"text":"2"})"
       "\n", 0},
      {"--json -e 'x:=3;~x;~'",
       R"({"kind":"nothing"})"
       "\n"
       R"({"kind":"nothing","name":"x","message":"'x' is undefined"})"
       "\n"
       R"({"kind":"deletion","message":"All symbols erased"})"
       "\n", 0},
      {"--json -e '1\n2; 1+zz'",
       R"({"kind":"value","type":"Scalar","value":1,"text":"1"})"
       "\n"
       R"({"kind":"value","type":"Scalar","value":2,"text":"2"})"
       "\n"
       R"({"kind":"error","error":{"message":"Unknown symbol 'zz'","file":"-e","line":2,)"
       R"("position":5,"length":2}})"
       "\n", 1},
      {"--json -e '?zz'",
       R"({"kind":"error","error":{"message":"Unknown symbol 'zz'","file":"-e","line":1,)"
       R"("position":1,"length":2}})"
       "\n", 1},
      {"--json -e 'a;x=a'",
       R"({"kind":"definition","type":"Symbol","name":"a","value":null,"text":"a"})"
       "\n"
       R"({"kind":"warning","message":"'Symbol=Symbol' does nothing"})"
       "\n", 0},
  };
  ExpectOutputs(kRows);
}

// What is computed for the output draws no random numbers of its own.
TEST(JsonOutput, DrawsWhatTextDraws) {
  const std::string commands = "r&=rand();r;r;rand()";
  const std::string text = RunShell({"-e", commands}).output;
  const std::string json = RunShell({"--json", "-e", commands}).output;
  const std::string last = text.substr(text.rfind(' ') + 1);
  EXPECT_NE(json.find("\"text\":\"" + last.substr(0, last.size() - 1) + "\""), std::string::npos)
      << text << json;
}

// Read back by somebody else's parser.
TEST(JsonOutput, IsReadByOthers) {
  if (RunCommand({"/usr/bin/env", "sh", "-c", "command -v python3"}, "", {}).status != 0) {
    GTEST_SKIP() << "no python3";
  }
  const TemporaryDirectory directory;
  const std::string script = directory.Write(
      "script", "x=\"\\\xff\x01\n?\xc3\xa9\nv=<1, 2.5>\n1+\tz\n<<0.1>, <1/3>>\n?\n!4\n~\ny\n");
  const std::string reader =
      "import json, sys\n"
      "lines = [json.loads(line) for line in sys.stdin]\n"
      "print([o['kind'] for o in lines])\n"
      "print([o['value'] for o in lines if 'value' in o])\n"
      "print(lines[1]['error']['message'])\n";
  const Outcome outcome = RunWithMessages(
      "--json <" + script + " 2>/dev/null | PYTHONUTF8=1 python3 -c \"" + reader + "\"");
  EXPECT_EQ(outcome.output,
            "['error', 'error', 'definition', 'error', 'value', 'help', 'value', 'deletion']\n"
            "[[1, 2.5], [[0.1], [0.3333333333333333]], 24]\n"
            "Unknown symbol '\xc3\xa9'\n");
}

TEST(StopOnError, RunsNothingAfterAnError) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("script", "1\n2;?x;3\n4\n");
  const Row kRows[] = {
      {"--stop-on-error -e '1;?x;3' -e '4'",    "\tScalar : 1\n\tError : Unknown symbol 'x'\n", 1},
      {"--stop-on-error " + script + " -e '5'",
       "\tScalar : 1\n\tScalar : 2\n\tError : Unknown symbol 'x'\n",                            1},
      {"--stop-on-error --plain -e '?x;3'",     "",                                             1},
      {"--stop-on-error -e 'a;x=a;~b;3'",       // neither a warning nor this
       "\tDefining Symbol : a\n\tWarning : 'Symbol=Symbol' does nothing\n"
       "\t'b' is undefined\n\tScalar : 3\n",           0},
  };
  ExpectOutputs(kRows);
}

TEST(Errors, HaveTheirPlaceOnStandardError) {
  const TemporaryDirectory directory;
  const std::string script = directory.Write("a.txt", "1\n\r\n// 2\n<1>+2;zz+1\n");
  const struct {
    std::string arguments;
    std::string messages;
  } kRows[] = {
      {script,                        script + ":4: Error : No match for operator 'Vector + Scalar' in : <1> + 2\n" +
                   script + ":4: Error : Unknown symbol 'zz'\n"},
      {"- <" + script + " -e '\n?x'",
       "-:4: Error : No match for operator 'Vector + Scalar' in : <1> + 2\n"
       "-:4: Error : Unknown symbol 'zz'\n-e:2: Error : Unknown symbol 'x'\n"},
      {"-e 'a;x=a;~b;1'",             ""                                     }, // no errors
      {"--json -e '?x'",              ""                                     }, // have it in the object
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(RunWithMessages(row.arguments + " >/dev/null").output, row.messages);
  }
}

// Where both streams go to one place.
TEST(Errors, AreNotShownTwice) {
  EXPECT_EQ(RunWithMessages("-e '1;<1>+2;3'").output,
            "\tScalar : 1\n"
            "-e:1:\tError : No match for operator 'Vector + Scalar' in :\n\t        \t<1> + 2\n"
            "\tScalar : 3\n");
}

}  // namespace
}  // namespace Quarn
