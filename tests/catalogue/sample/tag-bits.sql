-- Decodes every supply id and lists where its bits and the roll's rows say different things: SKU, field, tag, rows.
-- The 20 digits are read as two numbers of 40 bits, "high" with tag bits 0 to 39 and "low" with 40 to 79.
-- A difference of NULL and a value counts. Nothing is listed when all agree.
WITH RECURSIVE
digit(itemNum, supplyId, place, high, low) AS (
    SELECT itemNum, supplyId, 0, 0, 0 FROM roll
    UNION ALL
    SELECT itemNum, supplyId, place + 1,
           high * 16 + instr('0123456789ABCDEF', substr(supplyId, place + 1, 1)) - 1,
           low * 16 + instr('0123456789ABCDEF', substr(supplyId, place + 11, 1)) - 1
    FROM digit WHERE place < 10
),
tag AS (
    SELECT itemNum, high, low,
           high >> 31 & 511          AS mileageBaseFeet,
           high >> 5 & 511           AS lengthFeet,
           ((high & 31) << 3) | (low >> 37) AS material,
           low >> 31 & 63            AS format,
           low >> 22 & 511           AS color,
           (low >> 12 & 63) + (low >> 18 & 15) * 0.0625 AS width,
           low >> 8 & 15             AS revision,
           low & 63                  AS formatRev1
    FROM digit WHERE place = 10
),
expected AS (
    SELECT roll.itemNum, roll.supplyId, roll.colorId, materialId, width, length, nonContinuousLength,
           coalesce(formatId, CASE WHEN secColorWidth > 0 THEN 2 ELSE 1 END) AS format,
           coalesce(secColorWidth, 0.0) AS stripeWidth, coalesce(secColorId, 0) AS stripeColor, separatorWidth
    FROM roll
    LEFT JOIN materialwidth ON materialwidth.id = roll.materialWidthId
    LEFT JOIN continuousstripe ON continuousstripe.itemNum = roll.itemNum
    LEFT JOIN noncontinuous ON noncontinuous.itemNum = roll.itemNum
),
compared(itemNum, field, inTag, inRows) AS (
    SELECT itemNum, 'supply id of 20 digits', supplyId, upper(supplyId) FROM expected
    WHERE length(supplyId) IS NOT 20 OR supplyId GLOB '*[^0-9A-F]*'
    UNION ALL
    SELECT itemNum, 'width', tag.width, expected.width FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'material', material, materialId FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'colour', color, colorId FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'format', tag.format, expected.format FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'format, revision 1', formatRev1, CASE revision WHEN 1 THEN expected.format ELSE 0 END
    FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'revision 0 or 1', revision, revision > 0 FROM tag
    UNION ALL
    -- The rows of an ordinary die-cut roll count labels, its tag holds the feet that these labels make.
    SELECT itemNum, 'length', lengthFeet * 1.0,
           CASE WHEN nonContinuousLength = 0.0 OR expected.format = 3 THEN length * 1.0
                ELSE (nonContinuousLength + separatorWidth) * length / 12.0 END
    FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'mileage base, at least the length', mileageBaseFeet, max(mileageBaseFeet, lengthFeet) FROM tag
    UNION ALL
    SELECT itemNum, 'label length',
           CASE WHEN tag.format IN (1, 2) THEN 0.0 ELSE (high >> 15 & 63) + (high >> 21 & 15) * 0.0625 END,
           nonContinuousLength
    FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'separator width',
           CASE WHEN tag.format IN (1, 2) THEN NULL ELSE ((high >> 25 & 3) + 1) * 0.0625 END, separatorWidth
    FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'stripe width',
           CASE WHEN tag.format IN (1, 2) THEN (high >> 19 & 63) + (high >> 25 & 15) * 0.0625 ELSE 0.0 END,
           stripeWidth
    FROM tag JOIN expected USING (itemNum)
    UNION ALL
    SELECT itemNum, 'stripe colour', CASE WHEN tag.format IN (1, 2) THEN high >> 15 & 15 ELSE 0 END, stripeColor
    FROM tag JOIN expected USING (itemNum)
)
SELECT itemNum, field, inTag, inRows FROM compared
WHERE inTag IS NOT inRows OR field = 'supply id of 20 digits'
ORDER BY itemNum, field;
