#include "interpreter/text_writer.h"

#include <algorithm>

#include "interpreter/machine.h"
#include "utils/s_str_convert.h"

namespace Quarn {

void Symbol::Write(TextWriter& out) const { out.Append(ToString().GetView()); }

TextWriter::~TextWriter() {
  while (!levels_.empty()) Pop();
}

void TextWriter::AppendNumber(double number) {
  char room[kNumberRoom];
  const char* end = WriteDouble(room, number);
  text_.Append(std::string_view(room, static_cast<std::size_t>(end - room)));
}

void TextWriter::AppendList(std::string_view open, const s_refptr<Elements>& elements,
                            std::string_view separator, std::string_view close) {
  text_.Append(open);
  if (!elements->AreNumbers()) {
    Level& level = levels_.emplace_back();
    level.elements = elements;
    level.separator = separator;
    level.close = close;
    return;
  }
  AppendNumbers(elements->GetNumbers(), separator);
  text_.Append(close);
}

// Room for one text after the other would take as long as writing it.
void TextWriter::AppendNumbers(std::span<const double> numbers, std::string_view separator) {
  constexpr std::size_t kWritten = 16;
  constexpr std::size_t kChecked = 64 * kWritten;
  for (std::size_t i = 0; i < numbers.size(); i += kWritten) {
    if (i % kChecked == 0 && !FitsLimits(std::min(kChecked, numbers.size() - i))) return;
    const std::size_t count = std::min(kWritten, numbers.size() - i);
    text_.AppendInPlace(count * (separator.size() + kNumberRoom), [&](char* at) {
      for (std::size_t j = i; j < i + count; ++j) {
        if (j > 0) at = std::copy(separator.begin(), separator.end(), at);
        at = WriteDouble(at, numbers[j]);
      }
      return at;
    });
  }
}

bool TextWriter::FitsLimits(std::size_t elements) {
  if (!machine_ || is_cut_off_) return !is_cut_off_;
  is_cut_off_ = !machine_->FitsText(text_.Get().size()) || !machine_->Spend(elements);
  return !is_cut_off_;
}

void TextWriter::AppendReference(const CellPtr& cell) {
  if (!cell) {
    text_.Append("null");
  } else if (cell->writer == this) {
    // It holds itself.
    text_.Append(cell->GetText());
  } else {
    awaited_ = cell;
  }
}

void TextWriter::AppendOperand(const Operand& operand) {
  operand.IsNumber() ? AppendNumber(operand.GetNumber()) : operand.GetValue()->Write(*this);
}

void TextWriter::Continue(const Answer& answer) {
  const CellPtr cell = std::move(awaited_);
  if (answer.outcome == Outcome::kValue) {
    if (answer.label) text_.Append(answer.label->GetView());
    if (answer.value.IsNumber()) return AppendNumber(answer.value.GetNumber());
    Level& level = levels_.emplace_back();
    level.value = answer.value.GetValue();
    level.cell = cell;
    level.previous_mark = std::exchange(cell->writer, this);
    level.value->Write(*this);
  } else {
    const bool is_own = answer.outcome == Outcome::kRing || answer.value.IsNumber();
    if (!is_own && answer.label) text_.Append(answer.label->GetView());
    text_.Append((is_own ? cell : GetCell(*answer.value.GetValue()))->GetText());
  }
}

bool TextWriter::Proceed() {
  while (!awaited_) {
    if (!FitsLimits(1) || levels_.empty()) return true;
    Level& level = levels_.back();
    if (!level.elements || level.next == level.elements->GetSize()) {
      text_.Append(level.close);
      Pop();
      continue;
    }
    if (level.next > 0) text_.Append(level.separator);
    level.elements->GetObjects()[level.next++]->Write(*this);
  }
  return false;
}

void TextWriter::Pop() {
  Level& level = levels_.back();
  if (level.cell) level.cell->writer = level.previous_mark;
  levels_.pop_back();
}

s_str WriteToText(const Symbol& value) {
  s_str text;
  TextWriter writer(text);
  value.Write(writer);
  WriteOut(writer);
  return text;
}

bool WriteOut(TextWriter& writer) {
  while (!writer.Proceed()) writer.Continue(writer.GetAwaited()->Follow());
  return !writer.IsCutOff();
}

}  // namespace Quarn
