// TextWriter writes the text of a value. Values that hold others do not recurse: they hand their
// parts over, and the writer keeps those on a stack of its own. Where it meets a reference it stops
// until somebody has evaluated that.
//   s_str text;
//   TextWriter writer(text);
//   value.Write(writer);
//   while (!writer.Proceed()) writer.Continue(machine.Follow(writer.GetAwaited()));
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "interpreter/cell.h"
#include "interpreter/elements.h"

namespace Quarn {

class TextWriter {
 public:
  // Appends to the text, which must outlive the writer, within the limits of the machine, if there
  // is one.
  explicit TextWriter(s_str& text, Machine* machine = nullptr) : text_(text), machine_(machine) {}
  ~TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  // ---- For Symbol::Write ----

  void Append(std::string_view text) { text_.Append(text); }
  void AppendNumber(double number);
  // "x = ", or nothing for a temporary.
  void AppendNameOf(const Symbol& value) {
    if (!value.GetName().IsEmpty()) text_.Append(value.GetName().GetView()).Append(" = ");
  }
  // The elements, after Write has returned. The marks around and between them must be literals.
  void AppendList(std::string_view open, const s_refptr<Elements>& elements,
                  std::string_view separator, std::string_view close);
  // What the expression of a reference evaluates to, or the expression where it has no value.
  void AppendReference(const CellPtr& cell);

  // ---- For whoever writes a value ----

  void AppendOperand(const Operand& operand);
  // Writes on until all is written, or until the value of a reference is needed.
  bool Proceed();
  const CellPtr& GetAwaited() const { return awaited_; }
  void Continue(const Answer& answer);
  // Was a limit reached? Then the rest is missing, and the machine knows why.
  bool IsCutOff() const { return is_cut_off_; }

 private:
  // A list whose elements are being written, or a reference whose value is.
  struct Level {
    s_refptr<Symbol> value;
    s_refptr<Elements> elements;
    std::size_t next = 0;
    std::string_view separator;
    std::string_view close;
    CellPtr cell;
    const TextWriter* previous_mark = nullptr;
  };

  void Pop();
  void AppendNumbers(std::span<const double> numbers, std::string_view separator);
  bool FitsLimits(std::size_t elements);

  s_str& text_;
  Machine* const machine_;
  bool is_cut_off_ = false;
  std::vector<Level> levels_;
  CellPtr awaited_;
};

// The text of a value: ToString for values that override Write.
s_str WriteToText(const Symbol& value);
// Writes all that there is to write; false when the limit was reached.
bool WriteOut(TextWriter& writer);

}  // namespace Quarn
