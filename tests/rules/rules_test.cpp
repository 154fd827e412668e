#include <gtest/gtest.h>

#include <random>

#include "rules/parser.h"
#include "rules/printer.h"

namespace orvent::rules {
namespace {

TEST(Rules, AreReadAndPrinted) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"p(X).", "p(X)."},
        {"p(X)<-q(X,_,pen,'it''s',\"a\"\"b\",07.50).", "p(X) <- q(X,_,'pen','it''s','a\"b',07.50)."},
        {" p ( X ) :- \r\n not q(X) , X<=3 , X<-5 , X <> Y.\n", "p(X) <- not q(X), X <= 3, X < -5, X <> Y."},
        {"p(X,sum<Y>)<-q(X,Y). r()<-p(1,2).", "p(X,sum<Y>) <- q(X,Y).\nr() <- p(1,2)."},
        {"p(X)<-q(X),X=3.7.q(1).", "p(X) <- q(X), X = 3.7.\nq(1)."},
        {"p(X)<-X LIKE Y,A<<B.", "p(X) <- X LIKE Y, A << B."},
        {"p(A-(B-C)-D*(E+F)/-G).", "p(A-(B-C)-D*(E+F)/-G)."},
        {"p(`First Name`,`x`)<-`my table`(Éa,éa).", "p(`First Name`,`x`) <- `my table`(`Éa`,'éa')."},
        {"notable(X)<-not notes(X).", "notable(X) <- not notes(X)."},
    };
    for (const auto& [text, printed] : cases) {
        const Parsed parsed = parse(text);
        EXPECT_FALSE(parsed.fault) << text << ": " << parsed.fault->words;
        EXPECT_EQ(print(parsed.rules), std::string(printed) + "\n");
    }
}

TEST(Rules, TellWhereTheyAreNone) {
    struct Case {
        const char* text;
        const char* fault;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"X", "1:1 A rule begins with a predicate and its arguments in brackets."},
        {"p(X", "1:4 \")\" is missing here."},
        {"p(X)<-q(X)", "1:11 \".\" is missing here."},
        {"p(é,\r\n\rX)<-q(X) .\n p(X)<-X.", "4:9 An operator is missing here."},
        {"p(X)<-X >\n .", "2:2 A value is missing here."},
        {"p(X)<-not X=2.", "1:11 Behind \"not\" stands a predicate and its arguments in brackets."},
        {"p(X)<-X=f(Y).", "1:9 A call stands by itself, with its value as the last argument."},
        {"p('x).", "1:3 This quote is not closed."},
        {"p(2x).", "1:3 \"2x\" is no number."},
        {"p(``).", "1:3 A name is empty."},
        {"!! \"X\" Has Not Been Declared!!", "1:1 A rule begins with a predicate and its arguments in brackets."},
    };
    for (const Case& one : cases) {
        const std::optional<SyntaxFault> fault = parse(one.text).fault;
        EXPECT_EQ(
            fault ? std::to_string(fault->place.line) + ":" + std::to_string(fault->place.column) + " " + fault->words
                  : "",
            one.fault);
    }
    EXPECT_TRUE(parse("p(" + std::string(100'000, '(') + "X).").fault);
    EXPECT_TRUE(parse("p(1" + std::string(100'000, '+') + "X).").fault);
}

TEST(Rules, KnownWordsGoBeforeAll) {
    Words everywhere;
    everywhere.add("my (old) table", {WordKind::name, "T", 7});
    Words words(&everywhere);
    words.add("a b", {WordKind::variable, "AB", 1});
    words.add("a b c", {WordKind::variable, "ABC", 2});
    words.add("a", {WordKind::constant, "first", 3});
    words.add("X>3", {WordKind::constant, "odd", 4});
    words.add("a", {WordKind::name, "f", 6});
    words.add("twice", {WordKind::constant, "one", 8});
    words.add("twice", {WordKind::constant, "other", 9});
    const Parsed parsed = parse("a(a b,a b c,OTHER_a b)<-my (old) table(X>3),X>30,twice!=3,not a(a).", &words);
    ASSERT_FALSE(parsed.fault) << parsed.fault->place.offset << parsed.fault->words;
    EXPECT_EQ(print(parsed.rules), "f(AB,ABC,OTHER_AB) <- T('odd'), X > 30, 'one' != 3, not f('first').\n");
    ASSERT_EQ(parsed.ambiguous.size(), 1u);
    EXPECT_EQ(parsed.ambiguous[0].place.column, 50);
    EXPECT_EQ(parsed.rules[0].body[0].atom.tag, 7);
}

/// Makes any tree that the language has.
class TreeMaker {
  public:
    explicit TreeMaker(unsigned seed) : random_(seed) {}

    Rule rule() {
        Rule result{atom(true), {}};
        for (int count = upTo(3); count > 0; --count) {
            Literal literal;
            literal.kind = static_cast<LiteralKind>(upTo(2));
            if (literal.kind == LiteralKind::comparison) {
                literal.op = pick({"=", "<>", "<", "!!", "LIKE", "is like", "not", "5", "`"});
                literal.values = {term(3), term(3)};
            } else {
                literal.atom = atom(false);
            }
            result.body.push_back(std::move(literal));
        }
        return result;
    }

  private:
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
    std::string pick(const std::vector<std::string>& from) {
        return from[static_cast<std::size_t>(upTo(static_cast<int>(from.size()) - 1))];
    }
    std::string name() {
        return pick({"p", "P", "_", "_x", "not", "two words", "é", "É", "1st", "`", "a.b", "x`", "'"});
    }

    Atom atom(bool isHead) {
        Atom result;
        result.name = name();
        for (int count = upTo(3); count > 0; --count) {
            result.arguments.push_back(term(3));
            if (isHead && upTo(2) == 0) {
                Term sum;
                sum.kind = TermKind::aggregate;
                sum.text = name();
                sum.parts.push_back(std::move(result.arguments.back()));
                result.arguments.back() = std::move(sum);
            }
        }
        return result;
    }

    Term term(int depth) {
        Term result;
        result.kind = static_cast<TermKind>(upTo(depth > 0 ? 4 : 3));
        switch (result.kind) {
            case TermKind::variable:
                result.text = name();
                break;
            case TermKind::number:
                result.text = pick({"0", "12", "3.50"});
                break;
            case TermKind::constant:
                result.text = pick({"", "pen", "Pen", "it's", "'", "\"", "12", "_", "a\r\nb"});
                break;
            case TermKind::arithmetic:
                result.text = pick({"+", "-", "*", "/"});
                result.parts.push_back(term(depth - 1));
                if (result.text != "-" || upTo(1) == 0) {
                    result.parts.push_back(term(depth - 1));
                }
                break;
            default:
                break;
        }
        return result;
    }

    std::mt19937 random_;
};

TEST(Rules, APrintedTreeIsReadAsTheSame) {
    for (unsigned seed = 0; seed < 1000; ++seed) {
        const std::vector<Rule> rules = {TreeMaker(seed).rule(), TreeMaker(seed + 5000).rule()};
        const std::string text = print(rules);
        const Parsed parsed = parse(text);
        ASSERT_FALSE(parsed.fault) << text << parsed.fault->place.offset << " " << parsed.fault->words;
        ASSERT_TRUE(parsed.rules == rules) << text << print(parsed.rules);
    }
}

}  // namespace
}  // namespace orvent::rules
