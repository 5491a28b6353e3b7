#include "platform/ado/jet_dialect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/raises.h"

namespace quenzel7::ado {
namespace {

using namespace std::string_literals;

constexpr Long kDatabase = -2147467259;

Literal Whole(std::int64_t value) { return value; }
Literal Real(double value) { return value; }
Literal Text(const char* value) { return std::string(value); }

LiftedStatement Lifted(std::string_view statement) {
  LiftedStatement lifted;
  LiftLiterals(statement, lifted);
  return lifted;
}

void ExpectLifted(std::string_view statement, std::string_view text, const std::vector<Literal>& literals) {
  const LiftedStatement lifted = Lifted(statement);
  EXPECT_EQ(lifted.text, text);
  EXPECT_EQ(lifted.literals, literals) << statement;
}

void ExpectUntouched(std::string_view statement) { ExpectLifted(statement, statement, {}); }

TEST(LiftLiterals, NumbersOfAWhereClauseAreLifted) {
  ExpectLifted("SELECT * FROM T WHERE ID=17", "SELECT * FROM T WHERE ID=?", {Whole(17)});
  ExpectLifted("SELECT * FROM T WHERE ID= 17", "SELECT * FROM T WHERE ID= ?", {Whole(17)});
  ExpectLifted("DELETE * FROM T WHERE A=1 AND B =2", "DELETE * FROM T WHERE A=? AND B =?",
               {Whole(1), Whole(2)});
}

TEST(LiftLiterals, StatementsThatDifferInTheirLiteralsLeaveTheSameText) {
  EXPECT_EQ(Lifted("SELECT * FROM T WHERE ID=1").text, Lifted("SELECT * FROM T WHERE ID=-31999").text);
  EXPECT_EQ(Lifted("SELECT * FROM T WHERE N='a'").text, Lifted("SELECT * FROM T WHERE N='it''s'").text);
}

TEST(LiftLiterals, AMinusSignThatBelongsToANumberGoesWithIt) {
  ExpectLifted("DELETE * FROM T WHERE ID=-1", "DELETE * FROM T WHERE ID=?", {Whole(-1)});
  ExpectLifted("DELETE * FROM T WHERE ID>= -1", "DELETE * FROM T WHERE ID>= ?", {Whole(-1)});
  ExpectLifted("INSERT INTO T (A,B) VALUES (-1,-2)", "INSERT INTO T (A,B) VALUES (?,?)",
               {Whole(-1), Whole(-2)});
  ExpectLifted("UPDATE T SET A=A+(-3) WHERE B=-.5", "UPDATE T SET A=A+(?) WHERE B=?",
               {Whole(-3), Real(-0.5)});
}

TEST(LiftLiterals, AMinusSignBehindAValueStaysASubtraction) {
  ExpectLifted("UPDATE T SET A=A-3", "UPDATE T SET A=A-?", {Whole(3)});
  ExpectLifted("UPDATE T SET A=[A]-3", "UPDATE T SET A=[A]-?", {Whole(3)});
  ExpectLifted("UPDATE T SET A=(A)-3", "UPDATE T SET A=(A)-?", {Whole(3)});
  ExpectLifted("UPDATE T SET A=5-3", "UPDATE T SET A=?-?", {Whole(5), Whole(3)});
  ExpectLifted("UPDATE T SET A='5'-3", "UPDATE T SET A=?-?", {Text("5"), Whole(3)});
}

TEST(LiftLiterals, AMinusSignAwayFromItsNumberStays) {
  ExpectLifted("UPDATE T SET A=- 3", "UPDATE T SET A=- ?", {Whole(3)});
  ExpectLifted("UPDATE T SET A=-B", "UPDATE T SET A=-B", {});
  ExpectLifted("UPDATE T SET A=-.B", "UPDATE T SET A=-.B", {});
  ExpectLifted("DELETE FROM T WHERE A=-(SELECT 5) AND B=2", "DELETE FROM T WHERE A=-(SELECT 5) AND B=?",
               {Whole(2)});
}

TEST(LiftLiterals, NumbersKeepTheirKind) {
  ExpectLifted("UPDATE T SET A=12.5", "UPDATE T SET A=?", {Real(12.5)});
  ExpectLifted("UPDATE T SET A=2.", "UPDATE T SET A=?", {Real(2)});
  ExpectLifted("UPDATE T SET A=.25", "UPDATE T SET A=?", {Real(0.25)});
  ExpectLifted("UPDATE T SET A=1e3", "UPDATE T SET A=?", {Real(1000)});
  ExpectLifted("UPDATE T SET A=1E+3", "UPDATE T SET A=?", {Real(1000)});
  ExpectLifted("UPDATE T SET A=5e-1", "UPDATE T SET A=?", {Real(0.5)});
  ExpectLifted("UPDATE T SET A=9223372036854775807", "UPDATE T SET A=?", {Whole(INT64_MAX)});
  ExpectLifted("UPDATE T SET A=9223372036854775808", "UPDATE T SET A=?", {Real(9223372036854775808.0)});
}

TEST(LiftLiterals, ANumberBeyondAllRangesStays) {
  ExpectUntouched("UPDATE T SET A=1e999");
  ExpectUntouched("UPDATE T SET A=-1e999");
}

TEST(LiftLiterals, TextsAreLiftedWithTheirDoubledQuotesMadeSingle) {
  ExpectLifted("UPDATE T SET A='it''s', B=''", "UPDATE T SET A=?, B=?", {Text("it's"), Text("")});
  ExpectLifted("UPDATE T SET A=\"say \"\"hi\"\"\"", "UPDATE T SET A=?", {Text("say \"hi\"")});
  ExpectLifted("UPDATE T SET A='a\"b', B=\"a'b\"", "UPDATE T SET A=?, B=?", {Text("a\"b"), Text("a'b")});
}

TEST(LiftLiterals, DigitsInNamesAndBracketsStay) {
  ExpectUntouched("UPDATE T SET Data8bpp=Flat3D, [a 5]=A1");
  ExpectLifted(
      "DELETE FROM T1 WHERE _1=$2 AND \xC3\xA4"
      "3=4",
      "DELETE FROM T1 WHERE _1=$2 AND \xC3\xA4"
      "3=?",
      {Whole(4)});
}

TEST(LiftLiterals, ASelectListStays) {
  ExpectLifted("SELECT 1, 'a', -2, A+3 FROM T WHERE B=4", "SELECT 1, 'a', -2, A+3 FROM T WHERE B=?",
               {Whole(4)});
  ExpectLifted("select Max(A+1) from T where B=4", "select Max(A+1) from T where B=?", {Whole(4)});
  ExpectLifted("SELECT A FROM T WHERE B IN (SELECT 5 FROM S WHERE C=6) AND D=7",
               "SELECT A FROM T WHERE B IN (SELECT 5 FROM S WHERE C=?) AND D=?", {Whole(6), Whole(7)});
  ExpectUntouched("SELECT (SELECT B FROM S WHERE C=6) FROM T");
}

TEST(LiftLiterals, OrderGroupAndLimitStay) {
  ExpectLifted("SELECT * FROM T WHERE A=1 ORDER BY 2, (3)", "SELECT * FROM T WHERE A=? ORDER BY 2, (3)",
               {Whole(1)});
  ExpectLifted("SELECT A FROM T GROUP BY 1 HAVING Count(*)>2", "SELECT A FROM T GROUP BY 1 HAVING Count(*)>?",
               {Whole(2)});
  ExpectUntouched("SELECT A FROM T LIMIT 5 OFFSET 6");
  ExpectLifted("DELETE FROM T WHERE A IN (SELECT B FROM S ORDER BY 1) AND C=2",
               "DELETE FROM T WHERE A IN (SELECT B FROM S ORDER BY 1) AND C=?", {Whole(2)});
}

TEST(LiftLiterals, SetLiftsAgain) {
  ExpectLifted("UPDATE T SET A=1 WHERE B=(SELECT C FROM S ORDER BY 1)",
               "UPDATE T SET A=? WHERE B=(SELECT C FROM S ORDER BY 1)", {Whole(1)});
}

TEST(LiftLiterals, AParenthesisTooManyIsLeftToTheEngine) {
  ExpectLifted("DELETE FROM T WHERE A=1) OR B=2", "DELETE FROM T WHERE A=?) OR B=?", {Whole(1), Whole(2)});
}

TEST(LiftLiterals, BlanksAndSemicolonsAtTheEndAreDropped) {
  ExpectLifted("DELETE FROM T WHERE A=1 ; \r\n\t;", "DELETE FROM T WHERE A=?", {Whole(1)});
  ExpectLifted("", "", {});
  ExpectLifted(" ;", "", {});
  ExpectLifted("VACUUM;", "VACUUM", {});
}

TEST(LiftLiterals, BlanksBeforeTheFirstWordDoNotMatter) {
  ExpectLifted(" \nDELETE FROM T WHERE A=1", " \nDELETE FROM T WHERE A=?", {Whole(1)});
}

TEST(LiftLiterals, OnlyTheFourStatementsAreTouched) {
  ExpectUntouched("CREATE TABLE T(A DEFAULT 5)");
  ExpectUntouched("PRAGMA user_version=5");
  ExpectUntouched("SELECTED 5");
  ExpectUntouched("5");
  ExpectLifted("insert into T values(5)", "insert into T values(?)", {Whole(5)});
  ExpectLifted("uPDATE T sET A=5", "uPDATE T sET A=?", {Whole(5)});
  ExpectLifted("Delete From T Where A=5", "Delete From T Where A=?", {Whole(5)});
}

TEST(LiftLiterals, WhatCannotBeReadIsLeftToTheEngine) {
  ExpectLifted("DELETE FROM T WHERE A=1 AND B='open", "DELETE FROM T WHERE A=? AND B='open", {Whole(1)});
  ExpectUntouched("DELETE FROM T WHERE [A=1");
  ExpectUntouched("DELETE FROM T WHERE A=5x AND B=1");
  ExpectUntouched("DELETE FROM T WHERE A=-5x AND B=1");
  ExpectUntouched("DELETE FROM T WHERE A=1e AND B=1");
}

TEST(LiftLiterals, LooksAtNothingBehindTheStatement) {
  for (const std::string_view text : {"DELETE FROM T WHERE A=.5", "DELETE FROM T WHERE A=-.5",
                                      "DELETE FROM T WHERE A=-5", "DELETE FROM T WHERE A=B''"}) {
    const std::string_view cut = text.substr(0, text.size() - 1);
    EXPECT_EQ(Lifted(cut).text, cut);
  }
}

TEST(LiftLiterals, TheMostLiteralsAreLiftedAndNoMore) {
  std::string statement = "DELETE FROM T WHERE A IN (0";
  std::string text = "DELETE FROM T WHERE A IN (?";
  for (std::size_t number = 1; number < kMostLifted; ++number) {
    statement += ",7";
    text += ",?";
  }
  EXPECT_EQ(kMostLifted, 250u);
  EXPECT_EQ(Lifted(statement + ")").text, text + ")");
  EXPECT_EQ(Lifted(statement + ",-8)").text, text + ",-8)");
  EXPECT_EQ(Lifted(statement + ",-8)").literals.size(), 250u);
}

TEST(LiftLiterals, TheTextIsAppended) {
  LiftedStatement lifted{"key:", {Whole(9)}};
  LiftLiterals("DELETE FROM T WHERE A=1", lifted);
  EXPECT_EQ(lifted.text, "key:DELETE FROM T WHERE A=?");
  EXPECT_EQ(lifted.literals, (std::vector<Literal>{Whole(9), Whole(1)}));
}

TEST(LiftLiterals, ASecondStatementIsRefused) {
  EXPECT_RAISES(kDatabase,
                "characters found after the end of the statement; in: DELETE FROM T; DELETE FROM S",
                Lifted("DELETE FROM T; DELETE FROM S"));
  ExpectLifted("UPDATE T SET A='x;y'", "UPDATE T SET A=?", {Text("x;y")});
}

TEST(LiftLiterals, ParametersAreRefused) {
  EXPECT_RAISES(kDatabase, "a statement holds no parameters; in: DELETE FROM T WHERE A=?",
                Lifted("DELETE FROM T WHERE A=?"));
  ExpectLifted("UPDATE T SET A='?'", "UPDATE T SET A=?", {Text("?")});
}

TEST(LiftLiterals, ZeroBytesAreRefused) {
  EXPECT_EQ(test::RaisedBy([] { Lifted("DELETE FROM T\0 WHERE A=1"s); }).number, kDatabase);
  EXPECT_EQ(test::RaisedBy([] { Lifted("VACUUM\0"s); }).number, kDatabase);
}

std::string Translated(std::string_view statement) { return TranslateJet(statement).text; }

TEST(TranslateJet, DeletedColumnsGo) {
  EXPECT_EQ(Translated("DELETE * FROM T WHERE A=1"), "DELETE  FROM T WHERE A=1");
  EXPECT_EQ(Translated("delete*from T"), "DELETE from T");
  EXPECT_EQ(Translated("DELETE T.* FROM T"), "DELETE  FROM T");
  EXPECT_EQ(Translated("DELETE [a b].* FROM [a b]"), "DELETE  FROM [a b]");
  EXPECT_EQ(Translated("DELETE FROM T"), "DELETE  FROM T");
  EXPECT_EQ(Translated("DELETE T.A FROM T"), "DELETE  T.[A] FROM T");
  EXPECT_EQ(Translated("DELETE FROM T *"), "DELETE  FROM T *");
  EXPECT_EQ(Translated("DELETE 5.* FROM T"), "DELETE  5.* FROM T");
}

TEST(TranslateJet, TrueAndFalseAreMinusOneAndZero) {
  EXPECT_EQ(Translated("UPDATE T SET A=True, B=false, C=-TRUE"), "UPDATE T SET A=(-1), B=0, C=-(-1)");
  EXPECT_EQ(Translated("SELECT T.True, [False], True.A FROM T"), "SELECT T.[True], [False], True.[A] FROM T");
  EXPECT_EQ(Translated("SELECT False.A FROM T"), "SELECT False.[A] FROM T");
}

TEST(TranslateJet, TextsInDoubleQuotesGetSingleOnes) {
  EXPECT_EQ(Translated("SELECT \"a\" FROM T WHERE A=\"it's \"\"so\"\"\" AND B='c''d'"),
            "SELECT 'a' FROM T WHERE A='it''s \"so\"' AND B='c''d'");
}

TEST(TranslateJet, AmpersandsJoinTexts) {
  EXPECT_EQ(Translated("UPDATE T SET A=B & 'x' &C"), "UPDATE T SET A=B || 'x' ||C");
}

TEST(TranslateJet, ReservedNamesGetBrackets) {
  EXPECT_EQ(Translated("SELECT Max(Index) AS M FROM T WHERE index=1 ORDER BY Index"),
            "SELECT Max([Index]) AS M FROM T WHERE [index]=1 ORDER BY [Index]");
  for (const char* name :
       {"ADD", "ALTER", "AUTOINCREMENT", "CHECK", "COMMIT", "CONSTRAINT", "CREATE", "DEFERRABLE", "DROP",
        "FOREIGN", "INDEX", "NOTHING", "REFERENCES", "PRIMARY", "TABLE", "TO", "TRANSACTION", "UNIQUE"}) {
    EXPECT_EQ(Translated("SELECT "s + name + " FROM T"), "SELECT ["s + name + "] FROM T");
  }
  EXPECT_EQ(Translated("SELECT Indexes, Idx FROM T"), "SELECT Indexes, Idx FROM T");
}

TEST(TranslateJet, NamesInBracketsStay) {
  EXPECT_EQ(Translated("SELECT [Bits], [a b] FROM [Index] ORDER BY [index]"),
            "SELECT [Bits], [a b] FROM [Index] ORDER BY [index]");
}

TEST(TranslateJet, QualifiedNamesGetBrackets) {
  EXPECT_EQ(Translated("SELECT T.Order, T.* FROM T"), "SELECT T.[Order], T.* FROM T");
}

TEST(TranslateJet, ValuesNeedNotBeDistinctToBeAmongThem) {
  EXPECT_EQ(
      Translated(
          "SELECT * FROM T WHERE A NOT IN (SELECT DISTINCT B FROM S) AND C in(select distinct(D) FROM S)"),
      "SELECT * FROM T WHERE A NOT IN (SELECT B FROM S) AND C in(select(D) FROM S)");
  EXPECT_EQ(Translated(
                "DELETE FROM T WHERE A IN (SELECT DISTINCT B FROM (SELECT B FROM S LIMIT 1) UNION SELECT 1)"),
            "DELETE  FROM T WHERE A IN (SELECT B FROM (SELECT B FROM S LIMIT 1) UNION SELECT 1)");
  // Behind the query another one may be limited.
  EXPECT_EQ(Translated("SELECT A FROM T WHERE A IN (SELECT DISTINCT B FROM S) LIMIT 3"),
            "SELECT A FROM T WHERE A IN (SELECT B FROM S) LIMIT 3");
  EXPECT_EQ(Translated("SELECT A FROM T WHERE A IN (SELECT DISTINCT B FROM S"),
            "SELECT A FROM T WHERE A IN (SELECT B FROM S");
}

TEST(TranslateJet, WhatHasToBeDistinctStaysSo) {
  for (const char* statement : {"SELECT A FROM T WHERE A IN (SELECT DISTINCT B FROM S LIMIT 3)",
                                "SELECT A FROM T WHERE A IN (SELECT DISTINCT B FROM S WHERE (C=1) LIMIT 3)",
                                "SELECT DISTINCT A FROM T", "SELECT * FROM (SELECT DISTINCT A FROM T)",
                                "SELECT A FROM T WHERE A=(SELECT DISTINCT B FROM S)",
                                "SELECT A FROM T WHERE A IN (SELECT COUNT(DISTINCT B) FROM S)",
                                "SELECT A FROM T WHERE A IN (DISTINCT)", "SELECT(DISTINCT"}) {
    EXPECT_EQ(Translated(statement), statement);
  }
}

TEST(TranslateJet, TwoMinusSignsAreKeptApart) {
  EXPECT_EQ(Translated("SELECT 5--1, 5 - - 1 FROM T"), "SELECT 5- -1, 5 -  - 1 FROM T");
}

TEST(TranslateJet, OtherStatementsStay) {
  for (const char* statement : {"CREATE TABLE T(\"Index\" DEFAULT True)", "PRAGMA table_info(T)", "", " "}) {
    EXPECT_EQ(Translated(statement), statement);
    EXPECT_FALSE(TranslateJet(statement).isSingleTableQuery);
  }
}

TEST(TranslateJet, BlanksStay) { EXPECT_EQ(Translated("  SELECT\t*\r\nFROM  T "), "  SELECT\t*\r\nFROM  T"); }

/// The select list where the statement is a query of one table, else "-".
std::string SelectList(std::string_view statement) {
  const TranslatedStatement jet = TranslateJet(statement);
  if (!jet.isSingleTableQuery) return "-";
  return jet.text.substr(jet.selectListBegin, jet.selectListEnd - jet.selectListBegin);
}

TEST(TranslateJet, KnowsTheSelectListOfAQueryOfOneTable) {
  EXPECT_EQ(SelectList("SELECT * FROM T"), " * ");
  EXPECT_EQ(SelectList("select Index,[Bits] from T"), " [Index],[Bits] ");
  EXPECT_EQ(SelectList(" SELECT A FROM [a b] AS x WHERE A=1"), " A ");
  EXPECT_EQ(SelectList("SELECT A FROM T x ORDER BY A"), " A ");
  EXPECT_EQ(SelectList("SELECT A FROM T WHERE A IN (SELECT B FROM S GROUP BY B) ORDER BY A"), " A ");
  EXPECT_EQ(SelectList("SELECT (SELECT B FROM S) FROM T"), " (SELECT B FROM S) ");
}

TEST(TranslateJet, KnowsWhatGivesWholeRows) {
  for (const char* statement :
       {"SELECT * FROM T", " select  *  from [a b] AS x where x.A = 1", "SELECT * FROM T ORDER BY A",
        "SELECT * FROM T WHERE A=(1) ORDER BY T.A DESC, [B] ASC",
        "SELECT * FROM T WHERE A IN (SELECT B FROM S ORDER BY 1) AND C=2"}) {
    EXPECT_TRUE(TranslateJet(statement).givesWholeRows) << statement;
  }
  for (const char* statement :
       {"SELECT A FROM T", "SELECT *, A FROM T", "SELECT A, * FROM T", "SELECT T.* FROM T", "DELETE * FROM T",
        "SELECT * FROM T, S", "SELECT * FROM T LIMIT 1", "SELECT * FROM", "SELECT *", "INSERT * FROM T"}) {
    EXPECT_FALSE(TranslateJet(statement).givesWholeRows) << statement;
  }
}

TEST(TranslateJet, RowsInTheOrderOfAPlaceOrOfACalculationAreNotGivenWhole) {
  for (const char* order : {"1", "A,1", "A,-1", "A DESC, (1)", "+1", "A+B", "'A'", "A*1", "(A)", "?"}) {
    EXPECT_FALSE(TranslateJet(std::string("SELECT * FROM T ORDER BY ") + order).givesWholeRows) << order;
    EXPECT_FALSE(TranslateJet(std::string("SELECT * FROM T WHERE A=(1) ORDER BY ") + order).givesWholeRows)
        << order;
  }
}

TEST(TranslateJet, KnowsWhatIsNoQueryOfPlainRowsOfOneTable) {
  for (const char* statement : {"SELECT DISTINCT A FROM T",
                                "SELECT A FROM T, S",
                                "SELECT A FROM T INNER JOIN S ON T.A=S.A",
                                "SELECT A FROM T AS x LEFT JOIN S ON x.A=S.A",
                                "SELECT A FROM (SELECT * FROM T)",
                                "SELECT A FROM T GROUP BY A",
                                "SELECT A FROM T WHERE A=1 GROUP BY A",
                                "SELECT A FROM T WHERE A=1 HAVING A=1",
                                "SELECT A FROM T WHERE A=1 UNION SELECT A FROM S",
                                "SELECT A FROM T WHERE A=1 EXCEPT SELECT A FROM S",
                                "SELECT A FROM T WHERE A=1 INTERSECT SELECT A FROM S",
                                "SELECT A FROM T ORDER BY A LIMIT 1",
                                "SELECT 1",
                                "SELECT A FROM",
                                "SELECT",
                                "DELETE FROM T",
                                "UPDATE T SET A=1",
                                "INSERT INTO T SELECT * FROM S",
                                "SELECT A FROM main.T",
                                "SELECT A FROM T x y"}) {
    EXPECT_EQ(SelectList(statement), "-") << statement;
  }
}

}  // namespace
}  // namespace quenzel7::ado
