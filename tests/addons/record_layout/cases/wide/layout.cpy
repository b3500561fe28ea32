000010 01  SHOHIN-REC.                                                  SHOHIN01
000020*    商品マスター                                                 SHOHIN02
000030     05  SHOHIN-MEI      PIC N(20) VALUE N'日本語の商品名'.       SHOHIN03
000040     05  BIKO            PIC X(60) VALUE '備考欄に長い文章を書く  SHOHIN04
000050-    'に続く'.                                                    SHOHIN05
000060     05  商品番号        PIC X(8).                                SHOHIN06
