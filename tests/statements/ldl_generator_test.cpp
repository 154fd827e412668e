#include "ldl_generator_fixture.h"
#include "platform/fault.h"

namespace orvent::statements {
namespace {

TEST_F(LDLGeneratorTest, WorkedExample) {
    array("X", VarOutputArray, {"a"});
    define("F", VarFunction, "Check");
    EXPECT_EQ(generator()
                  .GenerateLDL("a_out(@X[1],A_OUT_1)<-a_in1(A_IN1_1,A_IN1_2),[i<arityOf(a_in1)+1]{@F(A_IN1_$i$)}.")
                  .text,
              "checkAge_out(CheckAge_OUT_X_1,CheckAge_OUT_ID)<-checkAge_in1(CheckAge_IN1_AU_ID,CheckAge_IN1_AGE),"
              "check(CheckAge_IN1_AU_ID)check(CheckAge_IN1_AGE).");
    EXPECT_EQ(generator().GenerateLDL("plain(text) <- stays, as. it {is}.").text, "plain(text) <- stays, as. it {is}.");
}

TEST_F(LDLGeneratorTest, Loops) {
    constant("N", "3");
    constant("BIG", "99999");
    array("A", VarParameterArray, {"x", "y"});
    const struct {
        const char *text, *expected, *why;
    } cases[] = {
        {"[i<3]{x$I$}", "x1x2", "the loop variable matches in any case"},
        {"a[i<1]{x}b", "ab", "a loop that runs to 0 leaves nothing"},
        {"[0<i<3]{x$i$}", "x1x2", "the lower bound is left out"},
        {"[ 1 < i < 2 + 3 ]{$i$}", "234", "blanks around the parts are trimmed"},
        {"[i=2]{x$i$}", "x2", "an equal sign runs once"},
        {"[i=2<4]{$i$}", "$i$$i$$i$", "a less-than sign takes precedence: the variable is called \"i=2\""},
        {"[=5]{x$$}", "x5", "the loop variable may have no name"},
        {"[i<3]{[j<$i$+1]{$i$.$j$ }}", "1.1 2.1 2.2 ", "an inner header may use the outer variable"},
        {"[i<3] words {x}", "xx", "what stands between header and body is lost"},
        {"[i<3", "CRITICAL ERROR AT POSITION: 0A bracket is not closed.", "no bracket follows"},
        {"[i<arityOf(a_out)+1]{o}", "oo", "the activity's outputs"},
        {"[i<arityof( A_OUT )+1]{o}", "oo", "in any case"},
        {"[i<arityOf(a_in2)+1]{i}", "i", "the attributes of a source"},
        {"[i<arityOf(a_in12)+1]{i}", "", "a source has one digit; this is taken for an array variable _in12"},
        {"[i<arityOf(a_in9)+1]{i}", "", "there is no such source"},
        {"[i<arityOf(@A)+1]{e}", "ee", "the elements of an array"},
        {"[i<arityOf(*A)+1]{e}", "ee", "the first character of the argument is dropped whatever it is"},
        {"[i<arityOf(@N)+1]{e}", "", "a scalar has no elements"},
        {"[i<@N+1]{n}", "nnn", "a constant parameter as a number"},
        {"[i<@BIG+1]{n}", "", "beyond 16 bits it is no number"},
        {"[i<5-2+1]{n}", "nnn", "terms from left to right"},
        {"[i<-5+9]{n}", "", "the empty term before a leading minus ends the bound at 0"},
        {"[i<4+x+9]{n}", "nnn", "so does any term that is no number: the value reached so far counts"},
        {"[i<1.5]{n}", "", "a fraction is no number"},
        {"[32767<i<2]{n}", "", "a bound beyond 16 bits: the loop disappears"},
        {"[i=$x$]{n}", "n", "no number is 0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(generator().ExpandLoops(c.text), c.expected) << c.text << "\n" << c.why;
    }
    EXPECT_EQ(generator().ParseLoopHeader("[nothing]").Operator, "ERROR");
    EXPECT_EQ(generator().ParseLoopHeader("[i<0-32767-1]").Operator, "ERROR");
    EXPECT_EQ(LDLGenerator::SplitArityExpression("1-2+3"), (std::vector<std::size_t>{0, 2, 4, 6}));
}

TEST_F(LDLGeneratorTest, Variables) {
    constant("X", "ab");
    constant("X2", "never");
    define("U", VarUndefined);
    define("P", VarParameter);
    define("IN", VarFunctionParameter, "1", 0, RegInput);
    define("NOTHING", VarParameter, "-1", -1, RegInput);
    define("WORDS", VarParameter, "one", 0, RegInput);
    define("FIELD", VarParameter, "AUTHORS", 1, RegRecordSetField);
    define("GONE", VarParameter, "AUTHORS", 2, RegRecordSetField);
    define("RS", VarRecordSet, "AUTHORS");
    define("F", VarFunction, "Mult");
    define("NONAME", VarFunction, "");
    define("Result", VarFunctionOutput, "", 0);
    define("Out", VarOutput, "X");
    array("A", VarParameterArray, {"x", "", "z"});
    array("Os", VarOutputArray, {"", ""});
    const struct {
        const char *text, *expected, *why;
    } cases[] = {
        {"@X,@X2.", "AB,AB2.", "a name that begins with another one is replaced with it"},
        {"@U @UX", "!! \"U\" Has Not Been Declared!! !! \"U\" Has Not Been Declared!!X", "a kind is missing"},
        {"@P", "!! \"P\" Has Not Been Declared!!", "a value is missing"},
        {"@IN @NOTHING", "A_IN2_1 A_IN0_0", "an input is a token for the third pass; nothing chosen gives 0"},
        {"@X@WORDS@X", "AB@WORDSAB", "a source that is no number stops the pass; what was found before holds"},
        {"@FIELD @GONE", "AUTHORS_AGE @GONE", "a record set's attribute; one that is gone stops the pass"},
        {"@RS @F @Result", "aUTHORS mult RESULT", "names begin in lower case, the function's output is in upper case"},
        {"@NONAME @X", "@NONAME @X", "an empty name stops the pass"},
        {"@Out @Os[2]", "CheckAge_OUT_OUT CheckAge_OUT_OS_2", "outputs"},
        {"@A[1]@A[ 3 ]", "XZ", "the index is trimmed"},
        {"@A[2]", "!! \"A[2]\" Has Not Been Declared!!", "the element is named by its token"},
        {"@A[4] @X", "@A[4] @X", "beyond the array's size the pass stops"},
        {"@A[$i$] @X", "@A[$i$] @X", "an index that is no number, too"},
        {"@A, b[1] @A, b[1]", "X X", "without brackets behind it the next ones are taken"},
        {"@A] [1]", "@A] [1]", "if they come in order"},
        {"@Z @X", "@Z @X", "an unknown name stops the pass"},
        {"mail@ @X", "mail@ @X", "so does an \"@\" that stands alone"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(generator().ReplaceVariables(c.text), c.expected) << c.text << "\n" << c.why;
    }
    constant("ODD", "größe σ");
    EXPECT_EQ(generator().ReplaceVariables("@ODD"), "GRÖßE Σ") << "letters beyond ASCII, too";
}

TEST_F(LDLGeneratorTest, ActivityNames) {
    for (int i = 3; i <= 10; ++i) {
        sources.Add("S" + std::to_string(i));
    }
    EXPECT_EQ(generator().ReplaceActivityNames("A_IN10"), "checkAge_in10") << "number 1 hits the head of number 10";
    activity->Act_Name = "Änderung";
    EXPECT_EQ(generator().ReplaceActivityNames("A_OUT A_IN1"), "änderung_out änderung_in1");
}

TEST_F(LDLGeneratorTest, TenAttributesAndMore) {
    for (int i = 3; i <= 12; ++i) {
        const std::string name = "C" + std::to_string(i);
        activity->Act_Inputs->Add(name, 0, entities::TagNone, name).ParentKeyName = "CheckAge";
        activity->Act_Inputs->Item(name)->ProvidedFrom->Add("AUTHORS", entities::LinkRecordSet, "AUTHORS." + name);
        outputs.append(activity->Act_Inputs->share(activity->Act_Inputs->Count()), name);
    }
    sources = sourcesOf(*activity);
    const std::string text = "a_in1(A_IN1_1,A_IN1_12,A_IN1_13),A_IN10,A_OUT_1,A_OUT_12,A_OUT1,A_OUT";
    LDLGenerator passes = generator();
    EXPECT_EQ(passes.ReplaceActivityNames(text),
              "checkAge_in1(CheckAge_IN1_AU_ID,CheckAge_IN1_AU_ID2,CheckAge_IN1_AU_ID3),checkAge_in10,"
              "CheckAge_OUT_ID,CheckAge_OUT_ID2,checkAge_out1,checkAge_out")
        << "the first number is taken for its head";
    passes.WholeNumbers = true;
    EXPECT_EQ(passes.ReplaceActivityNames(text),
              "checkAge_in1(CheckAge_IN1_AU_ID,CheckAge_IN1_C12,checkAge_in1_13),A_IN10,"
              "CheckAge_OUT_ID,CheckAge_OUT_C12,A_OUT1,checkAge_out")
        << "whole numbers are not cut";
}

TEST_F(LDLGeneratorTest, WhatGrowsWithoutEndIsStopped) {
    constant("X", "@X@X");
    constant("SELF", "@OTHER");
    constant("OTHER", "@SELF");
    const LDLGenerator::Statement grown = generator().GenerateLDL("@X@X");
    EXPECT_EQ(grown.faults, std::vector<std::string>{"The text grows beyond 16 million characters."});
    EXPECT_GT(grown.text.size(), kMostCharacters / 2);
    EXPECT_LE(grown.text.size(), kMostCharacters);
    std::string swapping;
    for (int i = 0; i < 100'000; ++i) {
        swapping += "@SELF";
    }
    EXPECT_EQ(generator().GenerateLDL(swapping).faults, std::vector<std::string>{"The text does not come to an end."});
    const LDLGenerator::Statement loops = generator().GenerateLDL("[i<30000]{[j<30000]{x}$i$}");
    EXPECT_EQ(loops.text.rfind("CRITICAL ERROR AT POSITION: ", 0), 0U);
    EXPECT_EQ(loops.faults.size(), 1U);

    const std::string most(kMostCharacters - 1, 'x');
    constant("A", "y");
    EXPECT_TRUE(generator().GenerateLDL(most + "@A").faults.empty()) << "the greatest text is whole";
    constant("A", "yz");
    EXPECT_EQ(generator().GenerateLDL(most + "@A").faults.size(), 1U) << "and one more is too many";
}

TEST_F(LDLGeneratorTest, ManyAttributesInALongTextAreNoEndlessWork) {
    for (int i = 3; i <= 400; ++i) {
        const std::string name = "C" + std::to_string(i);
        activity->Act_Inputs->Add(name, 0, entities::TagNone, name)
            .ProvidedFrom->Add("AUTHORS", entities::LinkRecordSet, "AUTHORS." + name);
    }
    sources = sourcesOf(*activity);
    std::string text(1'300'000, 'x');
    for (int i = 1; i <= 9; ++i) {
        text += " A_IN1_" + std::to_string(i);
    }
    for (const char* name : {"CheckAge", "Data"}) {  // the latter makes tokens of its own
        activity->Act_Name = name;
        const LDLGenerator::Statement statement = generator().GenerateLDL(text + " A_OUT_2");
        EXPECT_TRUE(statement.faults.empty());
        EXPECT_TRUE(statement.text.ends_with("FULL")) << statement.text.substr(1'300'000);
    }
}

TEST_F(LDLGeneratorTest, ScannerFindsVariables) {
    const struct {
        const char *text, *found;
    } cases[] = {
        {"@X @X", "X"},         {"@a@b", "a b"},    {"@X[1] @X[$i$]", "X[]"}, {"@X, @X[1]", "X[]"},
        {"@A[@B] @C", "A[] C"}, {"a @ b @x", " x"}, {"@A[] ] @B", "A[] B"},   {"[i<arityOf(@K)+1]{@K[$i$]}", "K[]"},
    };
    for (const auto& c : cases) {
        LDLVariableCollection found;
        scanTemplate(c.text, found);
        std::string names;
        for (const LDLVariable& variable : found) {
            names += (variable.Index > 1 ? " " : "") + variable.VariableName + (variable.SubVariables ? "[]" : "");
        }
        EXPECT_EQ(names, c.found) << c.text;
    }
    LDLVariableCollection found;
    EXPECT_THROW(scanTemplate("@A @B[1", found), platform::Fault);
    EXPECT_EQ(found.Count(), 2);
    found.Remove("A");
    found.Remove("Z");
    EXPECT_EQ(found.Item(1)->VariableName, "B");
}

}  // namespace
}  // namespace orvent::statements
