VERSION 5.00
Begin VB.Form frmMixed 
   Caption         =   "Mixed"
   ClientHeight    =   1200
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   2400
   LinkTopic       =   "Form1"
   ScaleHeight     =   1200
   ScaleWidth      =   2400
   Begin VB.TextBox txtOne 
      Height          =   285
      Left            =   120
      TabIndex        =   0
      Text            =   "one"
      Top             =   120
      Width           =   2055
   End
End
Attribute VB_Name = "frmMixed"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub txtOne_Change()
    Debug.Print txtOne.Text
End Sub
