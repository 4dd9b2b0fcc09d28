#pragma once

#include "resources/text.h"

#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>

/// What is wrong with a schema or a DTD, or with its syntax, by the codes of Xerces, whose own
/// sentences are English.
namespace quillon::resources::xerces_texts {

using xercesc::XMLErrs;
using xercesc::XMLExcepts;
using xercesc::XMLValid;

/// Codes that mean the same for the one who reads it. %1, %2 and %3 stand for what the library
/// names, in its order; %4 for the pattern or path of the declaration.
struct Sentence {
    int first;
    int last;
    Text text;
    /// The attribute of the declaration that is wrong; empty when it is none, or unknown.
    QStringView attribute = {};
};

inline constexpr Text BadPlaceOrContent = u"この要素の位置または内容が正しくありません。";
inline constexpr Text NameOrRef = u"属性 'name' または 'ref' が必要です。";
inline constexpr Text Exclusive = u"同時に指定できない属性または子要素があります。";
inline constexpr Text Circular = u"定義が循環しています。";
inline constexpr Text Duplicate = u"'%1' という名前の宣言が重複しています。";
inline constexpr Text BadDerivation = u"派生した型が基底型と矛盾しています。";
inline constexpr Text BadAttributeDerivation =
    u"派生した型の属性 '%1' が基底型の宣言と矛盾しています。";
inline constexpr Text BadWildcardDerivation =
    u"派生した型の xs:anyAttribute が基底型と矛盾しています。";
inline constexpr Text NoExtension = u"基底型が 'extension' による派生を禁止しています。";
inline constexpr Text NoRestriction = u"基底型が 'restriction' による派生を禁止しています。";
inline constexpr Text OtherNamespace = u"取り込むファイルの対象の名前空間が一致しません。";
inline constexpr Text BadAll = u"xs:all の使い方が正しくありません。";
inline constexpr Text BadRedefinition = u"xs:redefine の内容が元の定義と一致しません。";
inline constexpr Text BadFacet = u"ファセットの値 '%1' が正しくありません。";
inline constexpr Text BadPattern = u"パターンが正規表現として正しくありません。";
inline constexpr Text BadPath = u"XPath 式 '%4' はここでは使用できません。";
inline constexpr Text SeveralAnnotations = u"xs:annotation は 1 つだけ置くことができます。";
inline constexpr Text IdWithValue = u"ID 型の宣言に既定値または固定値を指定することはできません。";
inline constexpr Text SeveralIdAttributes = u"ID 型の属性を 2 つ以上宣言することはできません。";

inline constexpr Text BadReference = u"文字参照または実体参照の構文が正しくありません。";
inline constexpr Text BadDeclarationSyntax = u"宣言の構文が正しくありません。";
inline constexpr Text BadXmlDeclaration = u"XML 宣言の構文が正しくありません。";
inline constexpr Text BadAttributeSyntax = u"属性の構文が正しくありません。";
inline constexpr Text BadNamespaceDeclaration = u"名前空間の宣言が正しくありません。";
inline constexpr Text BadName = u"名前が正しくありません。";
inline constexpr Text BadMarkup = u"マークアップの構文が正しくありません。";
inline constexpr Text BadSection = u"条件付きセクションの構文が正しくありません。";
inline constexpr Text UnclosedMarkup = u"コメント、処理命令またはタグが閉じていません。";
inline constexpr Text MismatchedTag = u"終了タグが開始タグと一致しません。";
inline constexpr Text BadCharacter = u"使用できない文字があります。";
inline constexpr Text BadEncoding = u"エンコードが正しくありません。";
inline constexpr Text BadCData = u"CDATA セクションの構文が正しくありません。";
inline constexpr Text BrokenEntity = u"実体の置換テキストの中で、マークアップが完結していません。";
inline constexpr Text NoDocument = u"ルート要素がありません。";

/// Of xercesc::XMLErrs.
inline constexpr Sentence OfErrors[] = {
    {XMLErrs::NotationAlreadyExists, XMLErrs::NotationAlreadyExists, Duplicate},
    {XMLErrs::AttListAlreadyExists, XMLErrs::AttListAlreadyExists, Duplicate},
    {XMLErrs::ContradictoryEncoding, XMLErrs::ContradictoryEncoding, BadEncoding},
    {XMLErrs::UndeclaredElemInCM, XMLErrs::UndeclaredElemInAttList,
     u"要素 '%1' は宣言されていません。"},
    {XMLErrs::FeatureUnsupported, XMLErrs::FeatureUnsupported, BadPlaceOrContent},
    {XMLErrs::TopLevelNoNameComplexType, XMLErrs::TopLevelNoNameAttribute,
     u"必須の属性 'name' がありません。"},
    {XMLErrs::NoNameRefAttribute, XMLErrs::NoNameRefAttGroup, NameOrRef},
    {XMLErrs::AnonComplexTypeWithName, XMLErrs::AnonSimpleTypeWithName,
     u"要素の中の型に名前を付けることはできません。", u"name"},
    {XMLErrs::InvalidElementContent, XMLErrs::ListUnionRestrictionError, BadPlaceOrContent},
    {XMLErrs::SimpleTypeDerivationByListError, XMLErrs::ExpectedSimpleTypeInRestriction,
     BadPlaceOrContent},
    {XMLErrs::DuplicateFacet, XMLErrs::DuplicateFacet, u"ファセット %1 が重複しています。"},
    {XMLErrs::ExpectedSimpleTypeInUnion, XMLErrs::InvalidSimpleContent, BadPlaceOrContent},
    {XMLErrs::UnspecifiedBase, XMLErrs::UnspecifiedBase, u"必須の属性 'base' がありません。"},
    {XMLErrs::InvalidComplexContent, XMLErrs::ContentError, BadPlaceOrContent},
    {XMLErrs::UnknownSimpleType, XMLErrs::UnknownComplexType, u"型 '%1' は宣言されていません。",
     u"type"},
    {XMLErrs::UnresolvedPrefix, XMLErrs::UnresolvedPrefix, u"接頭辞 '%1' は宣言されていません。"},
    {XMLErrs::RefElementNotFound, XMLErrs::RefElementNotFound, u"要素 '%1' は宣言されていません。",
     u"ref"},
    {XMLErrs::TypeNotFound, XMLErrs::TypeNotFound, u"型 '%2' は宣言されていません。", u"type"},
    {XMLErrs::TopLevelAttributeNotFound, XMLErrs::TopLevelAttributeNotFound,
     u"属性 '%1' は宣言されていません。", u"ref"},
    {XMLErrs::InvalidChildInComplexType, XMLErrs::InvalidChildInComplexType,
     u"子要素 '%1' の位置が正しくありません。"},
    {XMLErrs::BaseTypeNotFound, XMLErrs::BaseTypeNotFound, u"型 '%1' は宣言されていません。",
     u"base"},
    {XMLErrs::DatatypeValidatorCreationError, XMLErrs::DatatypeValidatorCreationError,
     u"型 '%1' の定義が正しくありません。"},
    {XMLErrs::InvalidChildFollowingSimpleContent, XMLErrs::InvalidChildFollowingConplexContent,
     BadPlaceOrContent},
    {XMLErrs::AttributeDefaultFixedValue, XMLErrs::AttributeDefaultFixedValue, Exclusive},
    {XMLErrs::NotOptionalDefaultAttValue, XMLErrs::NotOptionalDefaultAttValue,
     u"既定値のある属性の 'use' は 'optional' でなければなりません。", u"use"},
    {XMLErrs::DuplicateAttribute, XMLErrs::DuplicateAttribute, Duplicate},
    {XMLErrs::AttributeWithTypeAndSimpleType, XMLErrs::AttributeWithTypeAndSimpleType, Exclusive},
    {XMLErrs::AttributeSimpleTypeNotFound, XMLErrs::AttributeSimpleTypeNotFound,
     u"型 '%2' は宣言されていません。", u"type"},
    {XMLErrs::ElementWithFixedAndDefault, XMLErrs::ElementWithFixedAndDefault, Exclusive},
    {XMLErrs::InvalidDeclarationName, XMLErrs::InvalidDeclarationName,
     u"名前 '%2' が正しくありません。", u"name"},
    {XMLErrs::ElementWithTypeAndAnonType, XMLErrs::ElementWithTypeAndAnonType, Exclusive},
    {XMLErrs::NotSimpleOrMixedElement, XMLErrs::NotSimpleOrMixedElement,
     u"既定値または固定値のある要素の型は、テキストを含むことができる必要があります。"},
    {XMLErrs::DisallowedSimpleTypeExtension, XMLErrs::DisallowedSimpleTypeExtension, NoExtension},
    {XMLErrs::InvalidSimpleContentBase, XMLErrs::InvalidComplexTypeBase,
     u"基底型 '%1' はここでは使用できません。", u"base"},
    {XMLErrs::InvalidChildInSimpleContent, XMLErrs::InvalidChildInComplexContent,
     BadPlaceOrContent},
    {XMLErrs::AnnotationError, XMLErrs::AnnotationError, SeveralAnnotations},
    {XMLErrs::DisallowedBaseDerivation, XMLErrs::DisallowedBaseDerivation, Circular},
    {XMLErrs::InvalidBlockValue, XMLErrs::InvalidBlockValue, u"値 '%1' が正しくありません。",
     u"block"},
    {XMLErrs::InvalidFinalValue, XMLErrs::InvalidFinalValue, u"値 '%1' が正しくありません。",
     u"final"},
    {XMLErrs::InvalidSubstitutionGroupElement, XMLErrs::InvalidSubstitutionGroupElement,
     u"要素 '%2' を置換することはできません。", u"substitutionGroup"},
    {XMLErrs::SubstitutionGroupTypeMismatch, XMLErrs::SubstitutionGroupTypeMismatch,
     u"型が、置換する要素の型から派生していません。", u"substitutionGroup"},
    {XMLErrs::DuplicateElementDeclaration, XMLErrs::DuplicateElementDeclaration,
     u"同じ名前の要素 '%1' が、異なる型で宣言されています。"},
    {XMLErrs::InvalidAttValue, XMLErrs::InvalidAttValue,
     u"属性 '%2' の値 '%1' が正しくありません。"},
    {XMLErrs::AttributeRefContentError, XMLErrs::AttributeRefContentError, Exclusive},
    {XMLErrs::DuplicateRefAttribute, XMLErrs::DuplicateRefAttribute,
     u"'%2' という名前の宣言が重複しています。"},
    {XMLErrs::ForbiddenDerivationByRestriction, XMLErrs::ForbiddenDerivationByRestriction,
     NoRestriction},
    {XMLErrs::ForbiddenDerivationByExtension, XMLErrs::ForbiddenDerivationByExtension, NoExtension},
    {XMLErrs::BaseNotComplexType, XMLErrs::BaseNotComplexType,
     u"xs:complexContent の基底型は複合型でなければなりません。", u"base"},
    {XMLErrs::ImportNamespaceDifference, XMLErrs::ImportNamespaceDifference, OtherNamespace},
    {XMLErrs::DeclarationNoSchemaLocation, XMLErrs::DeclarationNoSchemaLocation,
     u"必須の属性 'schemaLocation' がありません。"},
    {XMLErrs::IncludeNamespaceDifference, XMLErrs::IncludeNamespaceDifference, OtherNamespace},
    {XMLErrs::OnlyAnnotationExpected, XMLErrs::OnlyAnnotationExpected, BadPlaceOrContent},
    {XMLErrs::InvalidAttributeContent, XMLErrs::InvalidAttributeContent, BadPlaceOrContent},
    {XMLErrs::AttributeRequiredGlobal, XMLErrs::AttributeRequiredLocal,
     u"必須の属性 '%1' がありません。"},
    {XMLErrs::AttributeDisallowedGlobal, XMLErrs::AttributeDisallowedLocal,
     u"属性 '%1' を使用することはできません。"},
    {XMLErrs::InvalidMin2MaxOccurs, XMLErrs::InvalidMin2MaxOccurs,
     u"minOccurs の値が maxOccurs の値より大きくなっています。"},
    {XMLErrs::AnyAttributeContentError, XMLErrs::AnyAttributeContentError, SeveralAnnotations},
    {XMLErrs::NoNameGlobalElement, XMLErrs::NoNameGlobalElement,
     u"必須の属性 'name' がありません。"},
    {XMLErrs::NoCircularDefinition, XMLErrs::NoCircularDefinition, Circular},
    {XMLErrs::DuplicateGlobalType, XMLErrs::DuplicateGlobalDeclaration,
     u"'%2' という名前の宣言が重複しています。"},
    {XMLErrs::WS_CollapseExpected, XMLErrs::WS_CollapseExpected, BadFacet},
    {XMLErrs::Import_1_1, XMLErrs::Import_1_1,
     u"スキーマに自分自身の名前空間を取り込むことはできません。"},
    {XMLErrs::Import_1_2, XMLErrs::Import_1_2,
     u"対象の名前空間のないスキーマが取り込むには、属性 'namespace' が必要です。"},
    {XMLErrs::ElemIDValueConstraint, XMLErrs::ElemIDValueConstraint, IdWithValue},
    {XMLErrs::NoNotationType, XMLErrs::NoNotationType,
     u"型 NOTATION は、列挙で限定したものだけを使用できます。"},
    {XMLErrs::EmptiableMixedContent, XMLErrs::EmptiableMixedContent,
     u"既定値または固定値のある要素の内容は、空にできる必要があります。"},
    {XMLErrs::EmptyComplexRestrictionDerivation, XMLErrs::InvalidContentRestriction, BadDerivation},
    {XMLErrs::ForbiddenDerivation, XMLErrs::ForbiddenDerivation,
     u"基底型がこの派生を禁止しています。"},
    {XMLErrs::AtomicItemType, XMLErrs::AtomicItemType,
     u"リストの項目の型にリストを使用することはできません。"},
    {XMLErrs::GroupContentError, XMLErrs::AttGroupContentError, BadPlaceOrContent},
    {XMLErrs::MinMaxOnGroupChild, XMLErrs::MinMaxOnGroupChild,
     u"ここで minOccurs または maxOccurs を指定することはできません。"},
    {XMLErrs::DeclarationNotFound, XMLErrs::DeclarationNotFound, u"'%3' は宣言されていません。",
     u"ref"},
    {XMLErrs::AllContentLimited, XMLErrs::BadMinMaxAllElem, BadAll},
    {XMLErrs::DuplicateAttInDerivation, XMLErrs::DuplicateAttInDerivation,
     u"属性 '%1' は基底型で宣言されています。"},
    {XMLErrs::NotExpressibleWildCardIntersection, XMLErrs::NotExpressibleWildCardIntersection,
     u"複数の xs:anyAttribute を 1 つにまとめることができません。"},
    {XMLErrs::BadAttDerivation_1, XMLErrs::BadAttDerivation_1, BadDerivation},
    {XMLErrs::BadAttDerivation_2, XMLErrs::BadAttDerivation_5, BadAttributeDerivation},
    {XMLErrs::BadAttDerivation_6, XMLErrs::BadAttDerivation_7, BadWildcardDerivation},
    {XMLErrs::BadAttDerivation_8, XMLErrs::BadAttDerivation_8, BadAttributeDerivation},
    {XMLErrs::BadAttDerivation_9, XMLErrs::BadAttDerivation_9, BadWildcardDerivation},
    {XMLErrs::AllContentError, XMLErrs::AllContentError, BadAll},
    {XMLErrs::RedefineNamespaceDifference, XMLErrs::RedefineNamespaceDifference, OtherNamespace},
    {XMLErrs::Redefine_InvalidSimpleType, XMLErrs::Redefine_InvalidChild, BadRedefinition},
    {XMLErrs::Notation_DeclNotFound, XMLErrs::Notation_DeclNotFound,
     u"記法 '%2' は宣言されていません。"},
    {XMLErrs::IC_DuplicateDecl, XMLErrs::IC_DuplicateDecl, Duplicate},
    {XMLErrs::IC_BadContent, XMLErrs::IC_BadContent, BadPlaceOrContent},
    {XMLErrs::IC_KeyRefReferNotFound, XMLErrs::IC_KeyRefReferNotFound,
     u"キー '%2' は宣言されていません。", u"refer"},
    {XMLErrs::IC_KeyRefCardinality, XMLErrs::IC_KeyRefCardinality,
     u"xs:field の数がキー '%2' と一致しません。"},
    {XMLErrs::IC_XPathExprMissing, XMLErrs::IC_XPathExprMissing,
     u"必須の属性 'xpath' がありません。"},
    {XMLErrs::AttUseCorrect, XMLErrs::AttUseCorrect,
     u"固定値が、参照する属性 '%1' の固定値と一致しません。"},
    {XMLErrs::AttDeclPropCorrect3, XMLErrs::AttDeclPropCorrect3, IdWithValue},
    {XMLErrs::AttDeclPropCorrect5, XMLErrs::AttGrpPropCorrect3, SeveralIdAttributes},
    {XMLErrs::InvalidTargetNSValue, XMLErrs::InvalidTargetNSValue,
     u"対象の名前空間を空にすることはできません。", u"targetNamespace"},
    {XMLErrs::InvalidRedefine, XMLErrs::InvalidRedefine, u"'%1' はすでに取り込まれています。"},
    {XMLErrs::InvalidNSReference, XMLErrs::InvalidNSReference,
     u"名前空間 '%1' が xs:import で取り込まれていません。"},
    {XMLErrs::NotAllContent, XMLErrs::NotAllContent, BadAll},
    {XMLErrs::InvalidAnnotationContent, XMLErrs::InvalidAnnotationContent, BadPlaceOrContent},
    {XMLErrs::InvalidFacetName, XMLErrs::InvalidFacetName,
     u"ファセット %1 はこの型では使用できません。"},
    {XMLErrs::InvalidXMLSchemaRoot, XMLErrs::InvalidXMLSchemaRoot,
     u"XML スキーマ (XSD) ではありません。"},
    {XMLErrs::CircularSubsGroup, XMLErrs::CircularSubsGroup, Circular},
    {XMLErrs::ELTSchemaNS, XMLErrs::ELTSchemaNS,
     u"要素 '%1' は XML スキーマの名前空間の要素ではありません。"},
    {XMLErrs::InvalidAttTNS, XMLErrs::InvalidAttTNS,
     u"この名前空間に属性を宣言することはできません。"},
    {XMLErrs::NSDeclInvalid, XMLErrs::DOMLevel1Node, BadNamespaceDeclaration},
    {XMLErrs::DuplicateAnyAttribute, XMLErrs::AnyAttributeBeforeAttribute,
     u"xs:anyAttribute は最後に 1 つだけ置くことができます。"},
    {XMLErrs::ExpectedCommentOrCDATA, XMLErrs::ExpectedCommentOrCDATA, BadMarkup},
    {XMLErrs::ExpectedAttrName, XMLErrs::ExpectedAttrName, BadAttributeSyntax},
    {XMLErrs::ExpectedNotationName, XMLErrs::ExpectedDefAttrDecl, BadDeclarationSyntax},
    {XMLErrs::ExpectedEqSign, XMLErrs::ExpectedEqSign, BadAttributeSyntax},
    {XMLErrs::ExpectedElementName, XMLErrs::ExpectedElementName, BadMarkup},
    {XMLErrs::CommentsMustStartWith, XMLErrs::CommentsMustStartWith, BadMarkup},
    {XMLErrs::InvalidDocumentStructure, XMLErrs::InvalidDocumentStructure, BadMarkup},
    {XMLErrs::ExpectedDeclString, XMLErrs::BadStandalone, BadXmlDeclaration},
    {XMLErrs::UnterminatedComment, XMLErrs::UnterminatedComment, UnclosedMarkup},
    {XMLErrs::PINameExpected, XMLErrs::PINameExpected, BadMarkup},
    {XMLErrs::UnterminatedPI, XMLErrs::UnterminatedPI, UnclosedMarkup},
    {XMLErrs::InvalidCharacter, XMLErrs::InvalidCharacter, BadCharacter},
    {XMLErrs::UnterminatedStartTag, XMLErrs::UnterminatedStartTag, UnclosedMarkup},
    {XMLErrs::ExpectedAttrValue, XMLErrs::ExpectedAttrValue, BadAttributeSyntax},
    {XMLErrs::UnterminatedEndTag, XMLErrs::UnterminatedEndTag, UnclosedMarkup},
    {XMLErrs::ExpectedAttributeType, XMLErrs::ExpectedAttributeType, BadDeclarationSyntax},
    {XMLErrs::ExpectedEndOfTagX, XMLErrs::ExpectedEndOfTagX, MismatchedTag},
    {XMLErrs::ExpectedMarkup, XMLErrs::ExpectedMarkup, BadMarkup},
    {XMLErrs::NotValidAfterContent, XMLErrs::NotValidAfterContent,
     u"ルート要素の後に、置くことができない内容があります。"},
    {XMLErrs::ExpectedComment, XMLErrs::ExpectedCommentOrPI, BadMarkup},
    {XMLErrs::ExpectedWhitespace, XMLErrs::UnterminatedDOCTYPE, BadDeclarationSyntax},
    {XMLErrs::InvalidCharacterInIntSubset, XMLErrs::InvalidCharacterInIntSubset, BadCharacter},
    {XMLErrs::UnexpectedWhitespace, XMLErrs::UnexpectedWhitespace, BadMarkup},
    {XMLErrs::InvalidCharacterInAttrValue, XMLErrs::InvalidCharacterInAttrValue, BadCharacter},
    {XMLErrs::ExpectedMarkupDecl, XMLErrs::ExpectedMarkupDecl, BadDeclarationSyntax},
    {XMLErrs::TextDeclNotLegalHere, XMLErrs::TextDeclNotLegalHere, BadXmlDeclaration},
    {XMLErrs::ConditionalSectInIntSubset, XMLErrs::ConditionalSectInIntSubset, BadSection},
    {XMLErrs::ExpectedPEName, XMLErrs::UnterminatedEntityDecl, BadDeclarationSyntax},
    {XMLErrs::InvalidCharacterRef, XMLErrs::ExpectedEntityRefName, BadReference},
    {XMLErrs::EntityNotFound, XMLErrs::EntityNotFound, u"未定義の実体 '%1' が参照されています。"},
    {XMLErrs::NoUnparsedEntityRefs, XMLErrs::NoUnparsedEntityRefs,
     u"解析対象外の実体 '%1' をここで参照することはできません。"},
    {XMLErrs::UnterminatedEntityRef, XMLErrs::UnterminatedEntityRef, BadReference},
    {XMLErrs::RecursiveEntity, XMLErrs::RecursiveEntity, u"実体 '%1' の参照が循環しています。"},
    {XMLErrs::PartialMarkupInEntity, XMLErrs::PartialMarkupInEntity, BrokenEntity},
    {XMLErrs::UnterminatedElementDecl, XMLErrs::ExpectedEnumSepOrParen, BadDeclarationSyntax},
    {XMLErrs::UnterminatedEntityLiteral, XMLErrs::UnterminatedEntityLiteral,
     u"引用符が閉じていません。"},
    {XMLErrs::MoreEndThanStartTags, XMLErrs::MoreEndThanStartTags, MismatchedTag},
    {XMLErrs::ExpectedOpenParen, XMLErrs::ExpectedOpenParen, BadDeclarationSyntax},
    {XMLErrs::AttrAlreadyUsedInSTag, XMLErrs::AttrAlreadyUsedInSTag,
     u"属性 '%1' が重複しています。"},
    {XMLErrs::BracketInAttrValue, XMLErrs::BracketInAttrValue, BadAttributeSyntax},
    {XMLErrs::Expected2ndSurrogateChar, XMLErrs::Expected2ndSurrogateChar, BadCharacter},
    {XMLErrs::ExpectedEndOfConditional, XMLErrs::ExpectedINCLUDEBracket, BadSection},
    {XMLErrs::UnexpectedEOE, XMLErrs::UnexpectedEOE, BrokenEntity},
    {XMLErrs::PEPropogated, XMLErrs::PEPropogated, BrokenEntity},
    {XMLErrs::ExtraCloseSquare, XMLErrs::PERefInMarkupInIntSubset, BadDeclarationSyntax},
    {XMLErrs::EntityPropogated, XMLErrs::EntityPropogated, BrokenEntity},
    {XMLErrs::ExpectedNumericalCharRef, XMLErrs::ExpectedNumericalCharRef, BadReference},
    {XMLErrs::ExpectedOpenSquareBracket, XMLErrs::ExpectedOpenSquareBracket, BadDeclarationSyntax},
    {XMLErrs::BadSequenceInCharData, XMLErrs::BadSequenceInCharData,
     u"テキストの中に ']]>' を置くことはできません。"},
    {XMLErrs::IllegalSequenceInComment, XMLErrs::IllegalSequenceInComment,
     u"コメントの中に '--' を置くことはできません。"},
    {XMLErrs::UnterminatedCDATASection, XMLErrs::UnterminatedCDATASection, BadCData},
    {XMLErrs::ExpectedNDATA, XMLErrs::NDATANotValidForPE, BadDeclarationSyntax},
    {XMLErrs::HexRadixMustBeLowerCase, XMLErrs::HexRadixMustBeLowerCase, BadReference},
    {XMLErrs::DeclStringRep, XMLErrs::DeclStringsInWrongOrder, BadXmlDeclaration},
    {XMLErrs::NoExtRefsInAttValue, XMLErrs::NoExtRefsInAttValue,
     u"属性の値で外部実体を参照することはできません。"},
    {XMLErrs::XMLDeclMustBeLowerCase, XMLErrs::XMLDeclMustBeLowerCase, BadXmlDeclaration},
    {XMLErrs::ExpectedEntityValue, XMLErrs::ExpectedEntityValue, BadDeclarationSyntax},
    {XMLErrs::BadDigitForRadix, XMLErrs::BadDigitForRadix, BadReference},
    {XMLErrs::EndedWithTagsOnStack, XMLErrs::EndedWithTagsOnStack, u"要素 '%1' が閉じていません。"},
    {XMLErrs::NestedCDATA, XMLErrs::NestedCDATA, BadCData},
    {XMLErrs::UnknownPrefix, XMLErrs::UnknownPrefix, u"接頭辞 '%1' は宣言されていません。"},
    {XMLErrs::PartialTagMarkupError, XMLErrs::PartialTagMarkupError, BrokenEntity},
    {XMLErrs::EmptyMainEntity, XMLErrs::EmptyMainEntity, NoDocument},
    {XMLErrs::CDATAOutsideOfContent, XMLErrs::CDATAOutsideOfContent, BadCData},
    {XMLErrs::Unexpected2ndSurrogateChar, XMLErrs::Unexpected2ndSurrogateChar, BadCharacter},
    {XMLErrs::NoPIStartsWithXML, XMLErrs::NoPIStartsWithXML, BadName},
    {XMLErrs::XMLDeclMustBeFirst, XMLErrs::EncodingRequired, BadXmlDeclaration},
    {XMLErrs::ColonNotLegalWithNS, XMLErrs::ColonNotLegalWithNS, BadName},
    {XMLErrs::BadSchemaLocation, XMLErrs::BadSchemaLocation,
     u"属性 'schemaLocation' に、名前空間とファイルの組が並んでいません。"},
    {XMLErrs::SchemaScanFatalError, XMLErrs::SchemaScanFatalError,
     u"スキーマの構文が正しくありません。"},
    {XMLErrs::IllegalRefInStandalone, XMLErrs::IllegalRefInStandalone,
     u"standalone=\"yes\" のドキュメントで、外部で宣言された実体 '%1' "
     u"を参照することはできません。"},
    {XMLErrs::PEBetweenDecl, XMLErrs::PEBetweenDecl, BrokenEntity},
    {XMLErrs::NoEmptyStrNamespace, XMLErrs::NoXMLNSAsElementPrefix, BadNamespaceDeclaration},
    {XMLErrs::CT_SimpleTypeChildRequired, XMLErrs::CT_SimpleTypeChildRequired, BadPlaceOrContent},
    {XMLErrs::InvalidRootElemInDOCTYPE, XMLErrs::InvalidEntityRefName, BadName},
    {XMLErrs::DuplicateDocTypeDecl, XMLErrs::DuplicateDocTypeDecl, BadDeclarationSyntax},
};

/// Of xercesc::XMLValid: what schemas and DTDs themselves break.
inline constexpr Sentence OfDeclarations[] = {
    {XMLValid::NotationNotDeclared, XMLValid::NotationNotDeclared,
     u"記法 '%1' は宣言されていません。"},
    {XMLValid::GroupContentRestricted, XMLValid::GroupContentRestricted, BadPlaceOrContent},
    {XMLValid::UnknownBaseDatatype, XMLValid::UnknownBaseDatatype,
     u"型 '%1' は宣言されていません。", u"base"},
    {XMLValid::NoContentForRef, XMLValid::NoContentForRef, Exclusive},
    {XMLValid::UniqueParticleAttributionFail, XMLValid::UniqueParticleAttributionFail,
     u"内容モデルがあいまいです。子要素 '%2' がどの宣言に一致するかを決められません。"},
    {XMLValid::NonWSContent, XMLValid::NonWSContent, u"ここにテキストを置くことはできません。"},
};

/// Of xercesc::XMLExcepts: what is wrong with the values, patterns and paths in a schema.
inline constexpr Sentence OfValues[] = {
    {XMLExcepts::Trans_Unrepresentable, XMLExcepts::Trans_CantCreateCvtrFor, BadEncoding},
    {XMLExcepts::UTF8_FormatError, XMLExcepts::UTF8_Exceeds_BytesLimit, BadEncoding},
    {XMLExcepts::Parser_Parse1, XMLExcepts::Parser_Quantifier5, BadPattern},
    {XMLExcepts::FACET_Invalid_Len, XMLExcepts::FACET_NonNeg_minLen, BadFacet},
    {XMLExcepts::FACET_Len_maxLen, XMLExcepts::FACET_Len_maxLen,
     u"ファセット length と maxLength を同時に指定することはできません。"},
    {XMLExcepts::FACET_Len_minLen, XMLExcepts::FACET_Len_minLen,
     u"ファセット length と minLength を同時に指定することはできません。"},
    {XMLExcepts::FACET_maxLen_minLen, XMLExcepts::FACET_maxLen_minLen,
     u"ファセット maxLength と minLength の値が矛盾しています。"},
    {XMLExcepts::FACET_Invalid_Tag, XMLExcepts::FACET_Invalid_Tag,
     u"ファセット %1 はこの型では使用できません。"},
    {XMLExcepts::FACET_Len_baseLen, XMLExcepts::FACET_maxLen_baseLen,
     u"ファセットの値 '%1' が基底型の値 '%2' と矛盾しています。"},
    {XMLExcepts::FACET_enum_base, XMLExcepts::FACET_enum_base,
     u"列挙の値 '%1' は、基底型の値ではありません。"},
    {XMLExcepts::FACET_Invalid_WS, XMLExcepts::FACET_Invalid_WS, BadFacet},
    {XMLExcepts::FACET_WS_collapse, XMLExcepts::FACET_WS_replace,
     u"ファセット whiteSpace の値が基底型と矛盾しています。"},
    {XMLExcepts::FACET_Invalid_MaxIncl, XMLExcepts::FACET_NonNeg_FractDigit, BadFacet},
    {XMLExcepts::FACET_max_Incl_Excl, XMLExcepts::FACET_max_Incl_Excl,
     u"ファセット maxInclusive と maxExclusive を同時に指定することはできません。"},
    {XMLExcepts::FACET_min_Incl_Excl, XMLExcepts::FACET_min_Incl_Excl,
     u"ファセット minInclusive と minExclusive を同時に指定することはできません。"},
    {XMLExcepts::FACET_maxExcl_minExcl, XMLExcepts::FACET_maxExcl_minExcl,
     u"ファセット maxExclusive と minExclusive の値が矛盾しています。"},
    {XMLExcepts::FACET_maxExcl_minIncl, XMLExcepts::FACET_maxExcl_minIncl,
     u"ファセット maxExclusive と minInclusive の値が矛盾しています。"},
    {XMLExcepts::FACET_maxIncl_minExcl, XMLExcepts::FACET_maxIncl_minExcl,
     u"ファセット maxInclusive と minExclusive の値が矛盾しています。"},
    {XMLExcepts::FACET_maxIncl_minIncl, XMLExcepts::FACET_maxIncl_minIncl,
     u"ファセット maxInclusive と minInclusive の値が矛盾しています。"},
    {XMLExcepts::FACET_TotDigit_FractDigit, XMLExcepts::FACET_TotDigit_FractDigit,
     u"ファセット totalDigits と fractionDigits の値が矛盾しています。"},
    {XMLExcepts::FACET_maxIncl_base_maxExcl, XMLExcepts::FACET_minIncl_base_minExcl,
     u"ファセットの値 '%1' が基底型の値 '%2' と矛盾しています。"},
    {XMLExcepts::FACET_maxIncl_notFromBase, XMLExcepts::FACET_minExcl_notFromBase,
     u"ファセットの値 '%1' は、基底型の値ではありません。"},
    {XMLExcepts::FACET_totalDigit_base_totalDigit, XMLExcepts::FACET_whitespace_base_fixed,
     u"ファセットの値 '%1' が基底型の値 '%2' と矛盾しています。"},
    {XMLExcepts::FACET_internalError_fixed, XMLExcepts::FACET_Union_invalid_baseValidatorType,
     u"型の定義が正しくありません。"},
    {XMLExcepts::VALUE_NotMatch_Pattern, XMLExcepts::VALUE_URI_Malformed,
     u"値 '%1' が正しくありません。"},
    {XMLExcepts::XMLNUM_emptyString, XMLExcepts::XMLNUM_DBL_FLT_InvalidType,
     u"値が正しくありません。"},
    {XMLExcepts::Regex_Result_Not_Set, XMLExcepts::Regex_InvalidRepPattern, BadPattern},
    {XMLExcepts::XPath_NoAttrSelector, XMLExcepts::XPath_FindSolution, BadPath},
    {XMLExcepts::DateTime_dt_invalid, XMLExcepts::DateTime_tz_hh_invalid,
     u"値 '%1' が正しくありません。"},
    {XMLExcepts::PD_EmptyBase, XMLExcepts::PD_InvalidContentType, BadDerivation},
    {XMLExcepts::VALUE_QName_Invalid2, XMLExcepts::VALUE_QName_Invalid2,
     u"値 '%1' の接頭辞は宣言されていません。"},
};

} // namespace quillon::resources::xerces_texts
