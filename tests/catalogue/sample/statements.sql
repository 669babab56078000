-- Every question that the library asks, with values of the sample filled in: one statement a line, each gives a row.
-- Keyed: each must be answered by searches alone, without a scan of a table or an index and without sorting.
SELECT id FROM supplysensor WHERE supplysensortype='GAP' 
SELECT secColorWidth FROM continuousstripe WHERE itemNum='00144463'
SELECT color.rgbValue FROM continuousstripe INNER JOIN color ON continuousstripe.secColorId=color.secId WHERE itemNum='00144463'
SELECT materialwidth.materialId FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='00144463'
SELECT formatId FROM noncontinuous WHERE itemNum='00144884'
SELECT color.rgbValue FROM roll INNER JOIN color ON roll.colorId=color.id WHERE itemNum='00144463'
SELECT materialwidth.width FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='00144463'
SELECT landscape FROM roll WHERE itemNum='00144463'
SELECT separatorWidth FROM noncontinuous WHERE itemNum='00144884'
SELECT materialwidth.nonContinuousLength FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='00144884'
SELECT nUpCount FROM roll WHERE itemNum='00144724'
SELECT roll.supplysensorId FROM roll INNER JOIN supplysensor ON roll.supplysensorId=supplysensor.id WHERE roll.itemNum='00144463' 
SELECT materialwidth.length FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='00144463'
SELECT color.rgbValue FROM color WHERE color.id='300'
SELECT colorTS.name FROM colorTS WHERE colorTS.colorId='300' AND colorTS.languageId='1'
SELECT color.rgbValue FROM color WHERE color.secId='15'
SELECT colorTS.name FROM color INNER JOIN colorTS ON color.id=colorTS.colorId WHERE color.secId='15' AND colorTS.languageId='2'
SELECT materialTS.name FROM materialTS WHERE materialTS.materialId='130' AND materialTS.languageId='3'
SELECT formatTS.name FROM formatTS WHERE formatTS.formatId='41' AND formatTS.languageId='4'
SELECT background.svg FROM roll INNER JOIN background ON roll.backgroundId=background.id WHERE itemNum='00144463'
SELECT colorTS.name FROM continuousstripe INNER JOIN color ON continuousstripe.secColorId=color.secId INNER JOIN colorTS ON color.id=colorTS.colorId WHERE itemNum='00144463' AND colorTS.languageId='5'
SELECT color.name FROM continuousstripe INNER JOIN color ON continuousstripe.secColorId=color.secId WHERE itemNum='00144463'
SELECT materialTS.name FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id INNER JOIN materialTS ON materialwidth.materialId=materialTS.materialId WHERE itemNum='00144463' AND materialTS.languageId='0'
SELECT format.type FROM format WHERE id='3'
SELECT colorTS.name FROM roll INNER JOIN colorTS ON roll.colorId=colorTS.colorId WHERE itemNum='00144463' AND colorTS.languageId='1'
SELECT color.name FROM roll INNER JOIN color ON roll.colorId=color.id WHERE itemNum='00144463'
SELECT roll.itemNum AS SKU FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE roll.supplyId = '3220000C802080401000' AND materialwidth.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA') ORDER BY LENGTH(SKU)
SELECT COUNT(*) CNT FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE roll.supplyId = '3220000C802080401000' AND materialwidth.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA')
SELECT panels FROM ribbon WHERE sku='RW530901'
SELECT width FROM ribbon WHERE sku='RW530901'
SELECT length FROM ribbon WHERE sku='RW530901'
SELECT ribbon_typeTS.name FROM ribbon INNER JOIN ribbon_panel ON ribbon.id = ribbon_panel.ribbonId INNER JOIN ribbon_typeTS ON ribbon_panel.typeId = ribbon_typeTS.ribbon_typeId WHERE ribbon.sku = 'R530952' AND ribbon_typeTS.languageId = '1'
SELECT ribbon_color.rgbValue FROM ribbon INNER JOIN ribbon_panel ON ribbon.id=ribbon_panel.ribbonId INNER JOIN ribbon_color ON ribbon_panel.colorId=ribbon_color.id WHERE ribbon.sku='R530951' AND ribbon_panel.panel=2
SELECT ribbon_colorTS.name FROM ribbon INNER JOIN ribbon_panel ON ribbon.id=ribbon_panel.ribbonId INNER JOIN ribbon_colorTS ON ribbon_panel.colorId=ribbon_colorTS.ribbon_colorId WHERE ribbon.sku='R530951' AND ribbon_panel.panel='2' AND ribbon_colorTS.languageId='1'
SELECT ribbon_heat.heat FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='RW530901' AND ribbon_heat.panel=1 AND ribbon_heat.materialId=1
SELECT ribbon_heat.max_offset FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='RW530901' AND ribbon_heat.panel=1 AND ribbon_heat.materialId=1
SELECT ribbon_heat.max_speed FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='RW530901' AND ribbon_heat.panel=1 AND ribbon_heat.materialId=1
SELECT ribbon_heat.tension FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='RW530901' AND ribbon_heat.panel=1 AND ribbon_heat.materialId=1
SELECT sku FROM ribbon WHERE id='12'
-- Lists: each reads a whole table, which is what it is for.
SELECT name, rgbValue FROM color
SELECT roll.itemNum FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE materialwidth.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA')
SELECT sku FROM ribbon
SELECT name, rgbValue FROM ribbon_color
