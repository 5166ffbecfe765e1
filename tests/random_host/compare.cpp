#include "tests/random_host/compare.h"

#include <algorithm>

#include "tests/model/model_text.h"
#include "types/value.h"
#include "types/vector.h"

namespace Quarn::random_host {
namespace {

std::string ShowAnswer(const std::string& type, const std::string& text, const std::string& name,
                       const std::string& error) {
  return type + " '" + text + "' named '" + name + "'\n" + error;
}

// May the value be a symbol's? A reference might lead back to that, and what grows with each round
// would not stop.
bool IsKeepable(const ValuePtr& value) {
  constexpr std::size_t kMostElements = 3;
  if (value->kind == Kind::kReference || value->elements.size() > kMostElements) return false;
  return std::all_of(value->elements.begin(), value->elements.end(), [](const ValuePtr& element) {
    return IsKeepable(element) && element->elements.empty();
  });
}

template <class Rows>
void Append(Rows& rows, const Rows& more) {
  rows.insert(rows.end(), more.begin(), more.end());
}

}  // namespace

World::World(std::uint64_t seed)
    : seed_(seed),
      dice_(seed),
      description_(Describe(dice_)),
      state_(out_, in_),
      host_((Vector::Register(state_), state_), description_),
      evaluator_(description_) {
  evaluator_.SetReference("_", "");
  for (std::size_t i = 0; i < kValues; ++i) {
    state_.SetSymbol(ValueName(i), FromNumber(static_cast<double>(i)));
    evaluator_.SetSymbol(ValueName(i), NewScalar("", static_cast<double>(i)));
  }
  DefineReferences();
}

std::optional<std::string> World::Run(std::size_t questions) {
  for (std::size_t i = 0; i < questions; ++i) {
    const Question question = DrawQuestion();
    if (Differ(question)) return Report(Shrink(question));
    if (evaluator_value_) ++values_;
    if (evaluator_value_ && dice_.OneIn(4)) KeepValues();
    if (dice_.OneIn(10)) Change();
  }
  return std::nullopt;
}

// As they are now: of a type that was registered again, the last ones.
std::vector<LiteralRow> World::GetLiterals() const {
  std::map<std::size_t, LiteralRow> by_type;
  for (const LiteralRow& row : description_.literals) by_type[row.type] = row;
  std::vector<LiteralRow> rows;
  for (const auto& [type, row] : by_type) rows.push_back(row);
  return rows;
}

std::string World::DrawText(std::size_t references) {
  Vocabulary vocabulary{{}, references};
  for (const LiteralRow& row : GetLiterals()) vocabulary.literals.push_back(row.texts);
  return DrawExpression(dice_, vocabulary);
}

Question World::DrawQuestion() {
  Question question;
  question.text = DrawText(kReferences);
  question.compute = dice_.OneIn(6);
  if (question.compute) return question;
  if (dice_.OneIn(3)) question.name = dice_.Pick({"x", "s1", "_"});
  if (dice_.OneIn(10)) question.earlier = "\tWarning : this was said before";
  question.allow_new_symbol = dice_.OneIn(2);
  return question;
}

World::Answer World::AskState(const Question& question) {
  host_.Begin();
  s_str error = question.earlier;
  if (question.compute) {
    const Result result = state_.Compute(question.text);
    state_value_ = result.value;
    error = result.error;
  } else {
    state_value_ =
        state_.ParseSymbol(question.name, question.text, error, question.allow_new_symbol);
  }
  if (!state_value_) return {"null\n" + error.Get(), host_.GetCalls()};
  const std::string text = state_value_->ToString().Get();
  const std::string type = state_value_->GetType().Get();
  return {ShowAnswer(type, text, state_value_->GetName().Get(), error.Get()), host_.GetCalls()};
}

World::Answer World::AskEvaluator(const Question& question) {
  evaluator_.Begin();
  std::string error = question.earlier;
  evaluator_value_ =
      evaluator_.Evaluate(question.name, question.text, error, question.allow_new_symbol);
  if (!evaluator_value_) return {"null\n" + error, evaluator_.GetCalls()};
  // A host that asks for a value alone hears of no warning.
  if (question.compute) error.clear();
  const std::string text = evaluator_.TextOf(evaluator_value_);
  const std::string type = evaluator_.TypeOf(evaluator_value_);
  return {ShowAnswer(type, text, evaluator_value_->name, error), evaluator_.GetCalls()};
}

bool World::Differ(const Question& question) {
  try {
    const Answer expected = AskEvaluator(question);
    return AskState(question) != expected;
  } catch (const Endless&) {
    ++endless_;
    evaluator_value_ = nullptr;
    return false;
  }
}

// Drops characters as long as both still differ.
Question World::Shrink(Question question) {
  for (bool smaller = true; smaller;) {
    smaller = false;
    for (std::size_t length = question.text.size(); length > 0; length /= 2) {
      for (std::size_t at = 0; at + length <= question.text.size();) {
        Question without = question;
        without.text.erase(at, length);
        const bool differs = Differ(without);
        if (differs) question = without;
        smaller |= differs;
        if (!differs) ++at;
      }
    }
  }
  for (std::string Question::*part : {&Question::name, &Question::earlier}) {
    Question without = question;
    (without.*part).clear();
    if (Differ(without)) question = without;
  }
  return question;
}

std::string World::Report(const Question& question) {
  const Answer expected = AskEvaluator(question);
  const Answer answer = AskState(question);
  std::ostringstream report;
  report << "seed " << seed_ << (question.compute ? ", Compute '" : ", ParseSymbol '")
         << question.text << "' as '" << question.name << "'\n";
  // A reference is shown by its expression: it may have no end.
  for (const auto& [name, value] : evaluator_.GetSymbols()) {
    report << "  " << name << " : "
           << (value->kind == Kind::kReference ? "&" + value->text : evaluator_.TextOf(value))
           << '\n';
  }
  for (const LiteralRow& row : GetLiterals()) report << "  " << Show(description_, row) << '\n';
  const std::string calls = '\n' + expected.calls + answer.calls;
  const auto show = [&](const auto& rows) {
    for (const auto& row : rows) {
      const bool is_called = calls.find('\n' + row.body.label + '(') != std::string::npos;
      if (is_called) report << "  " << Show(row) << '\n';
    }
  };
  show(description_.operators);
  show(description_.functions);
  report << "expected " << expected.text << "\nafter the calls\n" << expected.calls;
  report << "but it is " << answer.text << "\nafter the calls\n" << answer.calls;
  return report.str();
}

// The values of the last question become those of a symbol.
void World::KeepValues() {
  if (!IsKeepable(evaluator_value_)) return;
  const std::string name =
      dice_.OneIn(4) ? FleetingName(dice_.Below(kFleeting)) : ValueName(dice_.Below(kValues));
  state_.SetSymbol(name, state_value_);
  evaluator_.SetSymbol(name, evaluator_value_);
}

void World::Change() {
  switch (dice_.Below(5)) {
    case 0:
      return DefineReferences();
    case 1:
      return AddMore();
    default:
      break;
  }
  const std::string name = FleetingName(dice_.Below(kFleeting));
  state_.EraseSymbol(name);
  evaluator_.EraseSymbol(name);
}

// Each names only those before it, so that none leads back to itself.
void World::DefineReferences() {
  for (std::size_t i = 0; i < kReferences; ++i) {
    const std::string name = ReferenceName(i);
    std::string expression = model::Trim(DrawText(i));
    if (IsEndless(expression)) expression = ValueName(i);
    evaluator_.SetReference(name, expression);
    state_.ProcessLine(name + "&=" + expression);
  }
  state_.SetLastResult({});
  out_.str("");
}

// A line prints what it defines, and would not return.
bool World::IsEndless(const std::string& expression) {
  evaluator_.Begin();
  try {
    evaluator_.TextOf(NewReference("", expression));
    return false;
  } catch (const Endless&) {
    return true;
  }
}

void World::AddMore() {
  const Description more = DescribeMore(dice_, description_);
  host_.Add(more);
  evaluator_.Add(more);
  for (const LiteralRow& row : more.literals) description_.literals.push_back(row);
  Append(description_.operators, more.operators);
  Append(description_.functions, more.functions);
}

}  // namespace Quarn::random_host
