VERSION 5.00
Begin VB.Form frmShow 
   Caption         =   "表示テスト"
   ClientHeight    =   2000
   ClientLeft      =   60
   ClientTop       =   400
   ClientWidth     =   3000
   BeginProperty Font 
      Name            =   "ＭＳ Ｐゴシック"
      Size            =   9
      Charset         =   128
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   ScaleHeight     =   2000
   ScaleWidth      =   3000
   Begin VB.Label lblName 
      Caption         =   "ソ\表"
      Height          =   300
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   2000
   End
End
Attribute VB_Name = "frmShow"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
' 表示用のフォーム
' ≒ ≒
