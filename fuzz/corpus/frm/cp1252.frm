VERSION 5.00
Begin VB.Form frmAccents 
   Caption         =   "Grˆﬂe ñ ‹berblick"
   ClientHeight    =   1800
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   3600
   LinkTopic       =   "Form1"
   ScaleHeight     =   1800
   ScaleWidth      =   3600
   Begin VB.Label lblPrice 
      Caption         =   "Preis: 10 Ä Ñnettoì"
      Height          =   255
      Left            =   120
      TabIndex        =   1
      Top             =   600
      Width           =   3255
   End
   Begin VB.CheckBox chkCafe 
      Caption         =   "CafÈ ""spÈcial"""
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   3255
   End
End
Attribute VB_Name = "frmAccents"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' DÈj‡ Å vu ó Ω ∑ ©
Private Sub chkCafe_Click()
    lblPrice.Caption = "Prix: 10 Ä"
End Sub
