-- Statements as the component writes them, run on both engines against the schema by
-- tests/entry/schema_ddl_test.cpp. A "-- setup" or "-- write" statement must run; a "-- rows N what"
-- query must return N rows. One statement per block; its lines are joined with a blank.

-- setup
INSERT INTO [SHOP]([SHOP_ID],[ATENA],[TAX_RATE],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN]) VALUES('S1',1,10,0,0,0)

-- setup
INSERT INTO [CHUMON]([ID],[ショップID],[氏名],[顧客番号],[顧客NO],[出荷日],[受注日],[請求額],[注文数量1]) VALUES(1,'S1','山田 太郎',7,7,'2024/05/01','2024/04/28',1100,2)

-- setup
INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_ID],[ITEM_PRICE],[REDUCEDKBN],[TAXRATE]) VALUES(1,1,'A-1',1000,1,8)

-- setup
INSERT INTO [CUSTOMER]([顧客NO],[顧客名],[郵便番号]) VALUES(7,'山田 太郎','100-0001')

-- setup
INSERT INTO WK_PRINT([ID], [SIMEI], [ORD_DATE], [DATE], [BIKO1], [BIKO2], [BIKO3], [ITEM_ID1], [SEK_GAKU], [EMAIL], [TEL],[YUBIN],[COMPANY],[CLIENT_NAME],[TAX],[INSHI])VALUES(1,'山田 太郎','2024/04/28','2024/05/01','','','','A-1',7,'','','','','PC1',100,0)

-- rows 1 slip
SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], [WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] FROM [CHUMON], [WK_PRINT] WHERE [CHUMON].[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = 'PC1'

-- rows 1 delivery note
SELECT [CHUMON].[ID], [氏名], [出荷日], [ショップID], [SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_RATE], 1 as ord , [受注日],[出荷予定日] , [INVOICE_NAME],[INVOICE_NO] From [CHUMON], [SHOP] WHERE [CHUMON].[ショップID] = [SHOP].[SHOP_ID] 

-- rows 1 list
SELECT [CHUMON].[氏名], [商品代金], [CHUMON_D].[ITEM_NO], [CHUMON_D].[ITEM_TAX], [WK_PRINT].* FROM (CHUMON LEFT JOIN CHUMON_D ON CHUMON.ID = CHUMON_D.ID) INNER JOIN WK_PRINT ON CHUMON.ID = WK_PRINT.ID WHERE [WK_PRINT].[CLIENT_NAME] = 'PC1'

-- rows 1 picking
SELECT [WK_PRINT].*, [CHUMON].[ID] as [ID],[顧客NO],[受注方法],[顧客番号],[会社名],[所属],[氏名],[氏名カナ],[郵便番号],[住所],[電話番号],[メールアドレス],[受注日],[支払方法],[電子決済受付No],[意見],[返信（出荷）],[メモ],[商品ID1],[単価1],[のし],[ショップID] FROM [CHUMON], [WK_PRINT] WHERE [CHUMON].[ID] = [WK_PRINT].[ID]

-- rows 1 customer labels
SELECT [CUSTOMER].*, [WK_PRINT].* FROM [CUSTOMER], [WK_PRINT] WHERE [CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU] AND [WK_PRINT].[CLIENT_NAME] = 'PC1' ORDER BY [ID]

-- rows 1 customers by item
SELECT * FROM [CUSTOMER] WHERE [顧客NO]  IN (SELECT DISTINCT CUSTOMER.顧客NO FROM (CHUMON_D INNER JOIN CHUMON ON CHUMON_D.ID = CHUMON.ID) INNER JOIN CUSTOMER ON CHUMON.顧客番号 = CUSTOMER.顧客NO WHERE [CHUMON_D].[ITEM_ID] >= 'A') ORDER BY [郵便番号],[顧客NO]

-- rows 1 item list
SELECT [ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_PRICE] FROM [CHUMON_D], [CHUMON] WHERE [CHUMON_D].[Id] = [CHUMON].[Id] AND [出荷日] >= '2024/01/01'

-- rows 1 sales
SELECT COUNT(*) as CNT,SUM([注文数量1]) as QTY1,SUM([注文数量20]) as QTY20,SUM([請求額]) as KINGAKU FROM [CHUMON] WHERE [出荷日] >= '2024/01/01'

-- rows 1 repeat
SELECT [顧客NO],[出荷日],[ID] FROM [CHUMON] WHERE [出荷日] >= '2024/01/01' AND [顧客NO] <> 0

-- rows 1 reduced lines
SELECT [ITEM_NO],[REDUCEDKBN],[TAXRATE] FROM [CHUMON_D] WHERE [ID] = 1

-- write
INSERT INTO [PRINTED]([REPORT_NO],[UPDATE],[ID])VALUES(0,20240501,1)

-- write
UPDATE [PRINTED] SET [CNT] = [CNT] + 1,[UPDATE] = 20240502 WHERE [REPORT_NO] = 0 AND [ID] = 1

-- write
INSERT INTO [SEIKYU_S] VALUES(1,1)

-- write
INSERT INTO WK_ITEMLIST([ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_TOTAL])VALUES('A-1','茶',0,0,1000)

-- write
INSERT INTO [WK_URIAGE](CLIENT_NAME,TARGET_DATE,ORDERQTY,TANKA,QTY,KINGAKU,REPEAT_RATE)VALUES('PC1','2024/05/01',0,0,0,0,0)

-- write
DELETE FROM WK_SEIKYU WHERE [CLIENT_NAME] = 'PC1'

-- write
UPDATE [CHUMON] SET [出荷伝票番号] = '123456789012' WHERE [ID] = 1
