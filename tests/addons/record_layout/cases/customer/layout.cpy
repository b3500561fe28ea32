000100******************************************************************CUST0001
000200*  CUSTOMER MASTER - WITH SEQUENCE NUMBERS AND IDENTIFICATION    *CUST0002
000300******************************************************************CUST0003
000400 01  CUSTOMER-RECORD.                                             CUST0004
000500     05  CUST-NUMBER             PIC 9(8).                        CUST0005
000600     05  CUST-NAME.                                               CUST0006
000700         10  LAST-NAME           PIC X(30).                       CUST0007
000800         10  FIRST-NAME          PIC X(20).                       CUST0008
000900         10  FILLER              PIC X(5).                        CUST0009
001000     05  CUST-STATUS             PIC X          VALUE "A".        CUST0010
001100         88  CUST-ACTIVE                        VALUE "A".        CUST0011
001200         88  CUST-CLOSED                        VALUES "C" THRU   CUST0012
001300                                                "F", "X".         CUST0013
001400     05  CREDIT-LIMIT            PIC S9(7)V99   COMP-3.           CUST0014
001500     05  BALANCE                 PICTURE IS S9(9)V9(2)            CUST0015
001600                                 USAGE IS COMPUTATIONAL-3         CUST0016
001700                                 VALUE IS ZERO.                   CUST0017
001800     05  VISITS                  PIC S9(4)      COMP.             CUST0018
001900     05  POINTS                  PIC S9(4)      COMP-5.           CUST0019
002000     05  DISCOUNT-RATE           COMP-1.                          CUST0020
002100     05                          PIC X(12).                       CUST0021
002200     66  FULL-NAME RENAMES LAST-NAME THRU FIRST-NAME.             CUST0022
