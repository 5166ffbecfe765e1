// Commands carries out the command lines: it cuts a line at ";", tells by its characters what each
// piece asks for, does that, and prints what there is to say.
#pragma once

#include <iosfwd>
#include <memory>
#include <string_view>

#include "interpreter/embedding.h"
#include "interpreter/operand.h"

namespace Quarn {

struct Core;
struct Evaluated;

class Commands {
 public:
  Commands(Core& core, std::ostream& out, std::istream& in) : core_(core), out_(out), in_(in) {}

  void ProcessLine(std::string_view line);
  // The first one of the last line.
  const Result& GetFailure() const;
  void Flush();
  void PrintHelp();
  // Makes "_" a null reference.
  void ForgetLastResult();

 private:
  // A line that is being carried out. A command may call for another line.
  class Line;

  void ProcessCommand(std::string_view command);
  bool Evaluate(std::string_view expression, const s_str& name, bool allows_new, Evaluated& result,
                s_str& error);
  void ProcessEquals(std::string_view before, std::string_view expression);
  void DefineReference(std::string_view name, std::string_view expression);
  void Assign(std::string_view name, std::string_view expression);
  void Declare(std::string_view name, std::string_view type);
  void Delete(std::string_view name);
  void DeleteAll();
  void Query(std::string_view name);
  void PrintExpression(std::string_view expression);

  void DefineNumber(std::string_view name, const Evaluated& result);
  void Define(std::string_view name, const s_str& type, const s_refptr<Symbol>& value);
  void Restore(std::string_view name, const s_refptr<Symbol>& before);
  bool PassesNameCheck(std::string_view name, const Place& place);
  void KeepFailure(Failure kind, const s_str& message, const Place& place);
  void Fail(Failure kind, s_str message, const Place& place = {});
  Place FindPlace(std::string_view part) const;
  void Print(std::string_view text);
  void PrintMessage(s_str message);
  void PrintNumber(std::string_view before, std::string_view name, double number);
  bool PrintValue(std::string_view before, std::string_view type, const Symbol& value);
  bool PrintReference(std::string_view before, std::string_view name, const CellPtr& cell);
  void ComposeNumber(std::string_view before, std::string_view name, double number);
  bool FinishLine(s_str& line, TextWriter& writer);
  bool FailOnLimit();

  Core& core_;
  std::ostream& out_;
  std::istream& in_;
  s_str line_;  // of output, being composed
  Line* current_ = nullptr;
  std::unique_ptr<Result> failure_;  // null when there was none
};

}  // namespace Quarn
