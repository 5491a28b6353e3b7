#include "platform/ado/jet_dialect.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"

namespace quenzel7::ado {
namespace {

using automation::AutomationError;
using automation::EqualFolded;
using automation::ErrorNumber;

enum class TokenKind : std::uint8_t {
  End,
  Blank,
  Word,
  Bracketed,
  Number,
  Text,
  Symbol,
  /// What no token can begin with, to the end of the statement: the engine will say what is wrong.
  Rest,
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string_view text;

  bool Is(char symbol) const { return kind == TokenKind::Symbol && text.front() == symbol; }
  bool Is(std::string_view keyword) const { return kind == TokenKind::Word && EqualFolded(text, keyword); }
  bool IsName() const { return kind == TokenKind::Word || kind == TokenKind::Bracketed; }
};

enum class CharClass : std::uint8_t { Symbol, Blank, Letter, Digit };

constexpr std::array<CharClass, 256> kCharClasses = [] {
  std::array<CharClass, 256> classes{};
  for (const char blank : {' ', '\t', '\r', '\n', '\f'}) {
    classes[static_cast<unsigned char>(blank)] = CharClass::Blank;
  }
  for (int c = '0'; c <= '9'; ++c) classes[static_cast<std::size_t>(c)] = CharClass::Digit;
  for (int c = 'A'; c <= 'Z'; ++c) {
    classes[static_cast<std::size_t>(c)] = classes[static_cast<std::size_t>(c + ('a' - 'A'))] =
        CharClass::Letter;
  }
  classes['_'] = classes['$'] = CharClass::Letter;
  for (std::size_t c = 0x80; c < 0x100; ++c) classes[c] = CharClass::Letter;
  return classes;
}();

class Scanner {
 public:
  explicit Scanner(std::string_view statement) : text_(statement) {}

  Token Next() {
    const std::size_t begin = at_;
    if (begin == text_.size()) return {};
    const char c = text_[begin];
    switch (ClassAt(begin)) {
      case CharClass::Blank:
        do ++at_;
        while (Is(CharClass::Blank));
        return Make(TokenKind::Blank, begin);
      case CharClass::Letter:
        SkipWord();
        return Make(TokenKind::Word, begin);
      case CharClass::Digit:
        return NextNumber();
      case CharClass::Symbol:
        break;
    }
    if (c == '\'' || c == '"') return NextQuoted(c);
    if (c == '[') return NextBracketed();
    if (c == '.' && begin + 1 < text_.size() && ClassAt(begin + 1) == CharClass::Digit) return NextNumber();
    ++at_;
    return Make(TokenKind::Symbol, begin);
  }

  /// Whether a digit or a point with a digit behind it comes next.
  bool AtNumber() const {
    std::size_t next = at_;
    if (next < text_.size() && text_[next] == '.') ++next;
    return next < text_.size() && ClassAt(next) == CharClass::Digit;
  }

 private:
  CharClass ClassAt(std::size_t place) const {
    return kCharClasses[static_cast<unsigned char>(text_[place])];
  }
  bool Is(CharClass kind) const { return at_ < text_.size() && ClassAt(at_) == kind; }
  bool Is(char c) const { return at_ < text_.size() && text_[at_] == c; }

  Token Make(TokenKind kind, std::size_t begin) const { return {kind, text_.substr(begin, at_ - begin)}; }

  Token Rest(std::size_t begin) {
    at_ = text_.size();
    return Make(TokenKind::Rest, begin);
  }

  void SkipWord() {
    do ++at_;
    while (Is(CharClass::Letter) || Is(CharClass::Digit));
  }

  void SkipDigits() {
    while (Is(CharClass::Digit)) ++at_;
  }

  Token NextNumber() {
    const std::size_t begin = at_;
    SkipDigits();
    if (Is('.')) {
      ++at_;
      SkipDigits();
    }
    if (Is('e') || Is('E')) {
      ++at_;
      if (Is('+') || Is('-')) ++at_;
      if (!Is(CharClass::Digit)) return Rest(begin);
      SkipDigits();
    }
    return Is(CharClass::Letter) ? Rest(begin) : Make(TokenKind::Number, begin);
  }

  /// A doubled quote stands for one.
  Token NextQuoted(char quote) {
    const std::size_t begin = at_;
    for (;;) {
      const std::size_t end = text_.find(quote, at_ + 1);
      if (end == std::string_view::npos) return Rest(begin);
      at_ = end + 1;
      if (!Is(quote)) return Make(TokenKind::Text, begin);
    }
  }

  Token NextBracketed() {
    const std::size_t begin = at_;
    const std::size_t end = text_.find(']', at_);
    if (end == std::string_view::npos) return Rest(begin);
    at_ = end + 1;
    return Make(TokenKind::Bracketed, begin);
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

/// The last eight letters of a word as one number, the same for upper and lower case. A longer word is never
/// taken for a keyword, all of which are shorter.
constexpr std::uint64_t Packed(std::string_view word) {
  std::uint64_t packed = 0;
  for (const char c : word) packed = packed << 8 | (static_cast<unsigned char>(c) | 0x20);
  return packed;
}

Token FirstToken(std::string_view statement) {
  Scanner scanner(statement);
  Token token = scanner.Next();
  return token.kind == TokenKind::Blank ? scanner.Next() : token;
}

/// Whether the statement is one of those that are translated.
bool IsTranslated(std::string_view statement) {
  const std::uint64_t first = Packed(FirstToken(statement).text);
  return first == Packed("select") || first == Packed("insert") || first == Packed("update") ||
         first == Packed("delete");
}

std::string Unquoted(std::string_view quoted) {
  const char quote = quoted.front();
  std::string text;
  text.reserve(quoted.size());
  for (std::size_t at = 1; at + 1 < quoted.size(); ++at) {
    text += quoted[at];
    if (quoted[at] == quote) ++at;
  }
  return text;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c;
    if (c == '\'') quoted += c;
  }
  return quoted + "'";
}

/// A whole number where it fits 64 bits, else a real one; nothing when it fits neither.
std::optional<Literal> NumberLiteral(std::string_view digits, bool negative) {
  const char* first = digits.data();
  const char* last = first + digits.size();
  std::int64_t whole = 0;
  const auto integer = std::from_chars(first, last, whole);
  if (integer.ec == std::errc() && integer.ptr == last) return negative ? -whole : whole;
  double real = 0;
  const auto number = std::from_chars(first, last, real);
  if (number.ec != std::errc() || number.ptr != last) return {};
  return negative ? -real : real;
}

/// Which literals may be lifted, by the clause that they stand in.
class Clauses {
 public:
  bool MayLift() const { return staying_ == 0; }

  void Open() { levels_.push_back(false); }
  void Close() {
    if (levels_.size() == 1) return;
    Stay(false);
    levels_.pop_back();
  }
  void Pass(const Token& word) {
    switch (Packed(word.text)) {
      case Packed("select"):
      case Packed("group"):
      case Packed("order"):
      case Packed("limit"):
        Stay(true);
        return;
      case Packed("from"):
      case Packed("where"):
      case Packed("having"):
      case Packed("set"):
        Stay(false);
        return;
      default:
        return;
    }
  }

 private:
  void Stay(bool stay) {
    staying_ += static_cast<int>(stay) - static_cast<int>(levels_.back());
    levels_.back() = static_cast<char>(stay);
  }

  /// Of each parenthesis that is open whether literals directly within it stay; short enough for no
  /// allocation.
  std::string levels_ = std::string(1, '\0');
  int staying_ = 0;
};

[[noreturn]] void RaiseStatement(const std::string& what, std::string_view statement) {
  throw AutomationError(ErrorNumber::Database, what + "; in: " + std::string(statement));
}

/// The statement without blanks and semicolons at its end.
std::string_view Trimmed(std::string_view statement) {
  const std::size_t last = statement.find_last_not_of(" \t\r\n\f;");
  return statement.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Names of columns and tables that SQLite takes for its own words, though no SELECT, INSERT, UPDATE or
/// DELETE of the Jet dialect has them.
constexpr std::string_view kReserved[] = {"ADD",        "ALTER",       "AUTOINCREMENT", "CHECK",   "COMMIT",
                                          "CONSTRAINT", "CREATE",      "DEFERRABLE",    "DROP",    "FOREIGN",
                                          "INDEX",      "NOTHING",     "REFERENCES",    "PRIMARY", "TABLE",
                                          "TO",         "TRANSACTION", "UNIQUE"};

bool IsReserved(std::string_view word) {
  return std::any_of(std::begin(kReserved), std::end(kReserved),
                     [word](std::string_view reserved) { return EqualFolded(word, reserved); });
}

/// The tokens of a statement, blanks left out of the counting.
class Tokens {
 public:
  explicit Tokens(std::string_view statement) {
    Scanner scanner(statement);
    std::string_view blank;
    for (Token token = scanner.Next(); token.kind != TokenKind::End; token = scanner.Next()) {
      const bool isBlank = token.kind == TokenKind::Blank;
      if (!isBlank) tokens_.push_back({blank, token});
      blank = isBlank ? token.text : std::string_view();
    }
  }

  std::size_t Size() const { return tokens_.size(); }
  /// The token at a place; an End beyond the last.
  Token operator[](std::size_t place) const {
    return place < tokens_.size() ? tokens_[place].token : Token{};
  }
  std::string_view BlankBefore(std::size_t place) const { return tokens_[place].blank; }

 private:
  struct Spaced {
    std::string_view blank;
    Token token;
  };
  std::vector<Spaced> tokens_;
};

/// How many tokens behind DELETE name the columns to delete ("*", "T.*"), which is always all of them.
std::size_t DeletedColumns(const Tokens& tokens) {
  if (tokens[1].Is('*')) return 1;
  if (tokens[1].IsName() && tokens[2].Is('.') && tokens[3].Is('*')) return 3;
  return 0;
}

/// Whether that token is a DISTINCT that changes nothing, as in IN (SELECT DISTINCT A FROM T): a value is
/// among the rows of a query however often it is there. The engine looks up values in an index only without
/// it.
bool IsNeedlessDistinct(const Tokens& tokens, std::size_t place) {
  if (!tokens[place].Is("DISTINCT") || place < 3) return false;
  if (!tokens[place - 1].Is("SELECT") || !tokens[place - 2].Is('(') || !tokens[place - 3].Is("IN"))
    return false;
  int depth = 1;
  for (std::size_t next = place + 1; depth > 0 && next < tokens.Size(); ++next) {
    const Token token = tokens[next];
    depth += static_cast<int>(token.Is('(')) - static_cast<int>(token.Is(')'));
    // As many other values would come in the place of repeated ones.
    if (depth == 1 && token.Is("LIMIT")) return false;
  }
  return true;
}

/// The place of FROM when the statement gives plain rows of one table, else 0.
std::size_t FromOfSingleTable(const Tokens& tokens) {
  if (!tokens[0].Is("SELECT") || tokens[1].Is("DISTINCT")) return 0;
  std::size_t from = 0;
  int depth = 0;
  for (std::size_t place = 1; place < tokens.Size(); ++place) {
    const Token token = tokens[place];
    depth += static_cast<int>(token.Is('(')) - static_cast<int>(token.Is(')'));
    if (depth > 0) continue;
    if (token.Is("FROM") && from == 0) from = place;
    for (const char* keyword : {"GROUP", "HAVING", "UNION", "EXCEPT", "INTERSECT", "LIMIT"}) {
      if (token.Is(keyword)) return 0;
    }
  }
  if (!tokens[from + 1].IsName()) return 0;
  std::size_t after = from + 2;
  const auto atClause = [&] {
    return after >= tokens.Size() || tokens[after].Is("WHERE") || tokens[after].Is("ORDER");
  };
  if (tokens[after].Is("AS")) ++after;
  if (!atClause() && tokens[after].IsName()) ++after;
  return atClause() ? from : 0;
}

/// Whether a query of one table is ordered by names only, and not by places in its select list, if at all.
bool IsOrderedByNames(const Tokens& tokens, std::size_t from) {
  int depth = 0;
  bool inOrder = false;
  for (std::size_t place = from; place < tokens.Size(); ++place) {
    const Token token = tokens[place];
    depth += static_cast<int>(token.Is('(')) - static_cast<int>(token.Is(')'));
    if (inOrder && !token.IsName() && !token.Is('.') && !token.Is(',')) return false;
    if (depth == 0 && token.Is("ORDER")) inOrder = true;
  }
  return true;
}

}  // namespace

void LiftLiterals(std::string_view statement, LiftedStatement& lifted) {
  const std::string_view trimmed = Trimmed(statement);
  if (trimmed.find('\0') != std::string_view::npos)
    RaiseStatement("a statement holds no zero bytes", statement);
  if (!IsTranslated(trimmed)) {
    lifted.text += trimmed;
    return;
  }
  Scanner scanner(trimmed);
  Clauses clauses;
  // What was passed over since the last literal.
  const char* stays = trimmed.data();
  // Whether a minus sign that comes next would be a subtraction.
  bool afterOperand = false;
  for (Token token = scanner.Next(); token.kind != TokenKind::End; token = scanner.Next()) {
    if (token.kind == TokenKind::Blank) continue;
    const char* begin = token.text.data();
    bool negative = false;
    if (token.kind == TokenKind::Symbol) {
      if (token.Is('(')) clauses.Open();
      if (token.Is(')')) clauses.Close();
      if (token.Is(';')) RaiseStatement("characters found after the end of the statement", statement);
      if (token.Is('?')) RaiseStatement("a statement holds no parameters", statement);
      negative = token.Is('-') && !afterOperand && scanner.AtNumber();
      afterOperand = token.Is(')');
      if (!negative) continue;
      token = scanner.Next();
    }
    afterOperand = true;
    if (token.kind == TokenKind::Word) {
      clauses.Pass(token);
      continue;
    }
    if (!clauses.MayLift() || lifted.literals.size() == kMostLifted) continue;
    std::optional<Literal> literal;
    if (token.kind == TokenKind::Number) literal = NumberLiteral(token.text, negative);
    if (token.kind == TokenKind::Text) literal = Unquoted(token.text);
    if (!literal) continue;
    lifted.text.append(stays, begin) += '?';
    stays = token.text.data() + token.text.size();
    lifted.literals.push_back(std::move(*literal));
  }
  lifted.text.append(stays, trimmed.data() + trimmed.size());
}

TranslatedStatement TranslateJet(std::string_view statement) {
  TranslatedStatement translated;
  if (!IsTranslated(statement)) {
    translated.text = statement;
    return translated;
  }
  const Tokens tokens(statement);
  const std::size_t from = FromOfSingleTable(tokens);
  translated.isSingleTableQuery = from != 0;
  translated.givesWholeRows = from == 2 && tokens[1].Is('*') && IsOrderedByNames(tokens, from);
  std::string& text = translated.text;
  std::size_t place = 0;
  if (tokens[0].Is("DELETE")) {
    text = "DELETE ";
    place = 1 + DeletedColumns(tokens);
  }
  for (; place < tokens.Size(); ++place) {
    const Token token = tokens[place];
    if (IsNeedlessDistinct(tokens, place)) continue;
    if (place == 1) translated.selectListBegin = text.size();
    text += tokens.BlankBefore(place);
    if (from != 0 && place == from) translated.selectListEnd = text.size();
    const Token before = place > 0 ? tokens[place - 1] : Token{};
    const bool qualified = before.Is('.');
    const bool qualifies = tokens[place + 1].Is('.');
    if (token.kind == TokenKind::Word && (qualified || IsReserved(token.text))) {
      (text += '[').append(token.text) += ']';
    } else if (token.Is("True") && !qualifies) {
      text += "(-1)";
    } else if (token.Is("False") && !qualifies) {
      text += "0";
    } else if (token.kind == TokenKind::Text) {
      text += Quoted(Unquoted(token.text));
    } else if (token.Is('&')) {
      text += "||";
    } else if (token.Is('-') && before.Is('-')) {
      text += " -";
    } else {
      text += token.text;
    }
  }
  return translated;
}

}  // namespace quenzel7::ado
