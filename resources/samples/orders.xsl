<?xml version="1.0" encoding="UTF-8"?>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html"/>

  <xsl:template match="/orders">
    <html>
      <head><title>受注一覧</title></head>
      <body>
        <h1>受注一覧 <xsl:value-of select="@month"/></h1>
        <xsl:apply-templates select="order"/>
      </body>
    </html>
  </xsl:template>

  <xsl:template match="order">
    <h2>No. <xsl:value-of select="@no"/></h2>
    <table border="1">
      <xsl:for-each select="item">
        <tr>
          <td><xsl:value-of select="title"/></td>
          <td><xsl:value-of select="quantity"/></td>
          <td><xsl:value-of select="price"/></td>
        </tr>
      </xsl:for-each>
    </table>
  </xsl:template>
</xsl:stylesheet>
