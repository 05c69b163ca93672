<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
<xsl:template match="/"><html><body><xsl:value-of select="document('@OUT@/secret.xml')"/></body></html></xsl:template>
</xsl:stylesheet>
