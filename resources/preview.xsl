<?xml version="1.0" encoding="UTF-8"?>
<!-- Shows a document as an indented, coloured source that can be folded. %FONT_NAME% and
     %FONT_SIZE% are replaced before use. The id of an element's name says where the node stands
     (dom:getPath); a click on it selects the node in the tree. Each block bears the number of its node,
     by which it is found again when the page is shown anew, or takes in another one. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
    xmlns:dom="urn:quillon-xml-editor:dom" xmlns:wd="http://www.w3.org/TR/WD-xsl"
    xmlns:dt="urn:schemas-microsoft-com:datatypes" exclude-result-prefixes="dom wd dt">

<xsl:output method="html" indent="no" doctype-system="about:legacy-compat"/>

<xsl:template match="/">
<html lang="ja">
<head>
<title>プレビュー</title>
<style>
/* On the screen, script gives the root the class dark where the program is dark. On paper, and in
   whatever is made of the page, the second colours hold. */
@media screen {
:root.dark { color-scheme: dark; background: #1e1e1e; --mark: #ff8a80; --name: #ff9a94;
             --instruction-name: #f2a6f2; --namespace: #ff8a80; --type: #7fd88f; --markup: #8fc7ff;
             --text: #e6e6e6; --comment: #a9b0a6; --edge: #55595f }
}
/* The height of a line leaves room for accents, which a block that is clipped would lose. */
BODY { font: %FONT_SIZE% '%FONT_NAME%', sans-serif; line-height: 1.35;
       margin-right: 1.5em; overflow-wrap: anywhere }
.c { cursor: pointer }
.b { color: var(--mark, red); font-family: '%FONT_NAME%', sans-serif; font-weight: bold; text-decoration: none;
     display: inline-block; width: 1em; text-indent: 0; user-select: none }
/* What is out of sight is not laid out. The left margin is inside of the box, or its clipping
   would take the marks away. */
.e, .k { padding-left: 1em; text-indent: -1em; margin-right: 1em;
         content-visibility: auto; contain-intrinsic-size: 1.3em }
/* A part of a document is small enough; there heights are true at once, by which script finds places. */
.part .e, .part .k { content-visibility: visible }
.t { color: var(--name, #990000) }
.xt { color: var(--instruction-name, #990099) }
.ns { color: var(--namespace, red) }
.dt { color: var(--type, green) }
.m { color: var(--markup, blue) }
.tx { color: var(--text, black); font-weight: bold; white-space: pre-wrap }
.ns + .tx { color: var(--namespace, red) }
.dt + .tx { color: var(--type, green) }
.db, .di { color: var(--text, black) }
.db, .cb { display: block; margin-left: 1em; padding-left: .3em; text-indent: 0;
           border-left: 1px solid var(--edge, #CCCCCC) }
.cb { color: var(--comment, #888888); font-size: small }
.di, .ci { font: %FONT_SIZE% '%FONT_NAME%', sans-serif; line-height: 1.35 }
.ci { color: var(--comment, #888888) }
.cm { color: var(--comment, #707070); cursor: pointer }
.d, .pi { color: var(--markup, blue) }
PRE { margin: 0; display: inline; font: inherit; white-space: pre-wrap }
.shut { display: none }
</style>
<script>
"use strict";
function isMark(target) {
    return target instanceof Element &amp;&amp; target.matches(".c > .b");
}
function isShut(mark) {
    return mark.textContent === "+";
}
function setShut(mark, shut) {
    mark.textContent = shut ? "+" : "-";
    mark.setAttribute("aria-expanded", String(!shut));
    // Class by class: a rule for all following siblings makes the browser restyle all below them.
    for (let next = mark.parentNode.nextElementSibling; next; next = next.nextElementSibling)
        next.classList.toggle("shut", shut);
}
document.addEventListener("click", (event) => {
    if (isMark(event.target))
        setShut(event.target, !isShut(event.target));
});
document.addEventListener("keydown", (event) => {
    const mark = event.target;
    if (!isMark(mark) || event.ctrlKey || event.altKey || event.metaKey)
        return;
    const shut = { "Enter": !isShut(mark), " ": !isShut(mark),
                   "ArrowLeft": true, "ArrowRight": false }[event.key];
    if (shut === undefined)
        return;
    setShut(mark, shut);
    event.preventDefault();
});
window.addEventListener("focus", () => { window.status = " "; });
</script>
</head>
<body class="st"><div class="m"><xsl:apply-templates/></div></body>
</html>
</xsl:template>

<xsl:template name="mark">
<span class="b" role="button" tabindex="0" aria-expanded="true" aria-label="{name()}">-</span>
</xsl:template>

<!-- All of the page is of class m; what is no markup has a class of its own inside. -->

<!-- A document type comes as an instruction with its name. -->
<xsl:template match="processing-instruction()">
<xsl:choose>
<xsl:when test="dom:nodeType(.) = 0"><xsl:call-template name="left-out"/></xsl:when>
<xsl:otherwise><xsl:call-template name="instruction"/></xsl:otherwise>
</xsl:choose>
</xsl:template>

<!-- Nodes that are not in the page, of class more, or, of class kept, that are in the page which is
     to take this one in. -->
<xsl:template name="left-out">
<div class="e {name()}" data-node="{dom:nodeNumber(.)}" data-path="{dom:getPath(.)}">
<xsl:if test="name() = 'more'"><span class="b"/>
<span class="cm" role="button" tabindex="0"><xsl:value-of select="."/></span></xsl:if>
<xsl:if test="name() = 'kept'"><xsl:attribute name="data-last"><xsl:value-of select="."/></xsl:attribute></xsl:if>
</div>
</xsl:template>

<xsl:template name="instruction">
<div class="e" data-node="{dom:nodeNumber(.)}"><span class="b"/>
<xsl:choose>
<xsl:when test="dom:nodeType(.) = 10">
<span class="d">&lt;!DOCTYPE <xsl:value-of select="name()"/> (View Source for full doctype...)&gt;</span>
</xsl:when>
<xsl:otherwise>
<xsl:text>&lt;?</xsl:text>
<span class="pi"><xsl:value-of select="name()"/>
<xsl:if test=". != ''"><xsl:text> </xsl:text><xsl:value-of select="."/></xsl:if></span>
<xsl:text>?&gt;</xsl:text>
</xsl:otherwise>
</xsl:choose>
</div>
</xsl:template>

<xsl:template match="comment()">
<xsl:call-template name="section">
<xsl:with-param name="open" select="'&lt;!--'"/>
<xsl:with-param name="close" select="'--&gt;'"/>
<xsl:with-param name="line" select="'ci'"/>
<xsl:with-param name="block" select="'cb'"/>
</xsl:call-template>
</xsl:template>

<!-- Text beside other nodes, CDATA sections and entity references. -->
<xsl:template match="text()">
<xsl:choose>
<xsl:when test="dom:nodeType(.) = 4">
<xsl:call-template name="section">
<xsl:with-param name="open" select="'&lt;![CDATA['"/>
<xsl:with-param name="close" select="']]&gt;'"/>
<xsl:with-param name="line" select="'di'"/>
<xsl:with-param name="block" select="'db'"/>
</xsl:call-template>
</xsl:when>
<xsl:otherwise>
<div class="e" data-node="{dom:nodeNumber(.)}"><span class="b"/><xsl:apply-templates select="." mode="inline"/></div>
</xsl:otherwise>
</xsl:choose>
</xsl:template>

<xsl:template match="text()" mode="inline">
<span class="tx">
<xsl:if test="dom:nodeType(.) = 5"><xsl:attribute name="class">m</xsl:attribute></xsl:if>
<xsl:value-of select="."/>
</span>
</xsl:template>

<xsl:template name="section">
<xsl:param name="open"/>
<xsl:param name="close"/>
<xsl:param name="line"/>
<xsl:param name="block"/>
<div class="k" data-node="{dom:nodeNumber(.)}">
<xsl:choose>
<xsl:when test="contains(., '&#10;')">
<div class="c"><xsl:call-template name="mark"/><xsl:value-of select="$open"/></div>
<div class="{$block}"><xsl:call-template name="preformatted"/></div>
<div><span class="b"/><xsl:value-of select="$close"/></div>
</xsl:when>
<xsl:otherwise>
<span class="b"/>
<xsl:value-of select="$open"/>
<span class="{$line}"><xsl:call-template name="preformatted"/></span>
<xsl:value-of select="$close"/>
</xsl:otherwise>
</xsl:choose>
</div>
</xsl:template>

<!-- HTML drops a line break that a PRE starts with, so there is one to be dropped. -->
<xsl:template name="preformatted">
<pre><xsl:if test="starts-with(., '&#10;')"><xsl:text>&#10;</xsl:text></xsl:if><xsl:value-of select="."/></pre>
</xsl:template>

<!-- Conditions stand inside the templates: as predicates of their patterns they would cost a walk
     over all siblings for every node. -->
<xsl:template match="*">
<div class="e" data-node="{dom:nodeNumber(.)}">
<xsl:choose>
<xsl:when test="not(node())">
<span class="b"/>&lt;<xsl:apply-templates select="." mode="name"/>
<xsl:apply-templates select="@*"/> /&gt;</xsl:when>
<xsl:when test="node()[dom:nodeType(.) != 3 and dom:nodeType(.) != 5]">
<div class="c"><xsl:call-template name="mark"/><xsl:call-template name="start-tag"/></div>
<xsl:apply-templates/>
<div><span class="b"/>&lt;/<xsl:apply-templates select="." mode="end-name"/>&gt;</div>
</xsl:when>
<xsl:otherwise>
<span class="b"/>
<xsl:call-template name="start-tag"/>
<xsl:apply-templates mode="inline"/>&lt;/<xsl:apply-templates select="." mode="end-name"/>&gt;</xsl:otherwise>
</xsl:choose>
</div>
</xsl:template>

<xsl:template name="start-tag">&lt;<xsl:apply-templates select="." mode="name"/>
<xsl:apply-templates select="@*"/>&gt;</xsl:template>

<xsl:template match="*" mode="name">
<span class="t" id="{dom:getPath(.)}"><xsl:value-of select="name()"/></span>
</xsl:template>

<xsl:template match="xsl:*|wd:*" mode="name">
<span class="xt" id="{dom:getPath(.)}"><xsl:value-of select="name()"/></span>
</xsl:template>

<xsl:template match="*" mode="end-name">
<span class="t"><xsl:value-of select="name()"/></span>
</xsl:template>

<xsl:template match="xsl:*|wd:*" mode="end-name">
<span class="xt"><xsl:value-of select="name()"/></span>
</xsl:template>

<xsl:template match="@*">
<xsl:choose>
<xsl:when test="name() = 'xmlns' or starts-with(name(), 'xmlns:') or starts-with(name(), 'xml:')">
<xsl:call-template name="attribute"><xsl:with-param name="class" select="'ns'"/></xsl:call-template>
</xsl:when>
<xsl:when test="starts-with(name(), 'dt:')">
<xsl:call-template name="attribute"><xsl:with-param name="class" select="'dt'"/></xsl:call-template>
</xsl:when>
<xsl:otherwise><xsl:call-template name="attribute"/></xsl:otherwise>
</xsl:choose>
</xsl:template>

<xsl:template match="@xsl:*|@wd:*">
<xsl:call-template name="attribute"><xsl:with-param name="class" select="'xt'"/></xsl:call-template>
</xsl:template>

<xsl:template match="@dt:*">
<xsl:call-template name="attribute"><xsl:with-param name="class" select="'dt'"/></xsl:call-template>
</xsl:template>

<xsl:template name="attribute">
<xsl:param name="class" select="'t'"/>
<xsl:text> </xsl:text>
<span class="{$class}"><xsl:value-of select="name()"/></span>="<span class="tx">
<xsl:value-of select="."/></span>"</xsl:template>

</xsl:stylesheet>
