#include "platform/xml/query/xpath_error.h"

#include "platform/runtime/error.h"
#include "resources/xpath_texts.h"

#include <libxml/xpath.h>

namespace quillon::xml {

namespace texts = resources::xpath_texts;

namespace {

[[noreturn]] void raise(const XPathExpression &expression, QStringView sentence,
                        const XPathToken &bad) {
    const auto slice = [&](std::size_t from, std::size_t to) {
        return QString::fromStdString(expression.utf8().substr(from, to - from));
    };
    const QString badText = bad.kind == XPathToken::Kind::End ? texts::EndOfExpression.toString()
                                                              : slice(bad.start, bad.end);
    // All at once: the expression may hold what looks like a place to fill in.
    const QString marked = texts::Marked.toString().arg(slice(0, bad.start), badText,
                                                        slice(bad.end, expression.utf8().size()));
    throw runtime::Error(runtime::error_number::Fail,
                         texts::Message.toString().arg(sentence.toString(), marked));
}

XPathToken whole(const XPathExpression &expression) {
    return {XPathToken::Kind::Symbol, 0, expression.utf8().size()};
}

/// What is missing, or not understood, at a token that the grammar does not take.
QStringView syntaxSentence(const XPathExpression &expression, const XPathToken &bad) {
    if (expression.tokens().size() == 1)
        return texts::Empty;
    if (bad.kind != XPathToken::Kind::End)
        return texts::Unexpected;
    return expression.lacksParenthesis() ? texts::ParenthesisExpected : texts::Syntax;
}

} // namespace

void raiseXPathError(const XPathExpression &expression, const XPathFailure &failure) {
    const XPathToken &stop = expression.tokenAt(failure.position);
    switch (failure.code) {
    case XPATH_EXPR_ERROR:
    case XPATH_INVALID_OPERAND:
    case XPATH_START_LITERAL_ERROR:
        raise(expression, syntaxSentence(expression, stop), stop);
    case XPATH_INVALID_PREDICATE_ERROR:
        raise(expression, texts::BracketExpected, stop);
    case XPATH_UNCLOSED_ERROR:
        raise(expression, texts::ParenthesisExpected, stop);
    case XPATH_UNFINISHED_LITERAL_ERROR:
        // It takes up all the rest.
        raise(expression, texts::UnclosedLiteral,
              expression.tokenAt(expression.utf8().empty() ? 0 : expression.utf8().size() - 1));
    case XPATH_VARIABLE_REF_ERROR:
        raise(expression, texts::VariableNameExpected, stop);
    case XPATH_NUMBER_ERROR:
        raise(expression, texts::NumberExpected, stop);
    case XPATH_INVALID_CHAR_ERROR:
    case XPATH_ENCODING_ERROR:
        raise(expression, texts::ForbiddenCharacter, stop);
    case XPATH_UNKNOWN_FUNC_ERROR:
        raise(expression, texts::UnknownFunction, expression.callOf(failure.function));
    case XPATH_INVALID_ARITY:
        raise(expression, texts::WrongArgumentCount, expression.callOf(failure.function));
    case XPATH_UNDEF_VARIABLE_ERROR:
        raise(expression, texts::UnknownVariable, expression.useOf(failure.variable));
    case XPATH_INVALID_TYPE:
        raise(expression, texts::WrongType, whole(expression));
    case XPATH_OP_LIMIT_EXCEEDED:
        raise(expression, texts::TooManySteps, whole(expression));
    case XPATH_RECURSION_LIMIT_EXCEEDED:
        raise(expression, texts::TooDeep, whole(expression));
    case XPATH_MEMORY_ERROR:
    case XPATH_STACK_ERROR:
        raise(expression, texts::TooLarge, whole(expression));
    default:
        raise(expression, texts::CannotEvaluate, whole(expression));
    }
}

void raiseUndeclaredPrefix(const XPathExpression &expression, const XPathToken &prefix) {
    raise(expression, texts::UndeclaredPrefix, prefix);
}

void raiseNotNodes(const XPathExpression &expression) {
    raise(expression, texts::NotNodes, whole(expression));
}

} // namespace quillon::xml
