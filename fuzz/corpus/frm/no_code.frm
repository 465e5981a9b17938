VERSION 5.00
Begin VB.Form frmEmpty 
   Caption         =   "No code"
   ClientHeight    =   1200
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   2400
   LinkTopic       =   "Form1"
   ScaleHeight     =   1200
   ScaleWidth      =   2400
   Begin VB.Timer tmrTick 
      Interval        =   500
      Left            =   120
      Top             =   120
   End
End
Attribute VB_Name = "frmEmpty"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
